// Objects of a drawing as thin handles: a class tells the kind, the host's state behind it holds
// the place in the database. An open call makes a handle, and close() ends and deletes it.
#pragma once

#include <memory>

#include "platform/acad_database.h"
#include "platform/acad_module.h"
#include "platform/acad_result.h"

// The host's side of an open object. Made by the host's open calls, gone with the handle.
class AcDbObjectState {
 public:
  virtual ~AcDbObjectState() = default;
};

class AcDbObject : public AcRxObject {
 public:
  ~AcDbObject() override;
  AcDbObject(const AcDbObject&) = delete;
  AcDbObject& operator=(const AcDbObject&) = delete;

  const AcRxClass* isA() const override;
  static const AcRxClass* desc();
  static AcDbObject* cast(const AcRxObject* object);  // null for another kind

  AcDbObjectId objectId() const;
  void getAcDbHandle(AcDbHandle& handle) const;
  // From read to write; the handle stays open for read when that fails.
  Acad::ErrorStatus upgradeOpen();
  // Ends the access and deletes this handle, which must not be touched again.
  Acad::ErrorStatus close();

  // The application's extended data: a chain that starts with its 1001 link, or null. The caller
  // releases it.
  resbuf* xData(const wchar_t* application) const;
  // Sets the extended data of the application that the chain's 1001 link names; the chain stays the
  // caller's. Needs an object open for write, and the name registered by acdbRegApp.
  Acad::ErrorStatus setXData(const resbuf* chain);

  AcDbObjectState* state() const { return state_.get(); }  // for the host

  // For the host; state must not be null.
  explicit AcDbObject(std::unique_ptr<AcDbObjectState> state);

 private:
  std::unique_ptr<AcDbObjectState> state_;
};

class AcDbEntity : public AcDbObject {
 public:
  using AcDbObject::AcDbObject;
  const AcRxClass* isA() const override;
  static const AcRxClass* desc();
  static AcDbEntity* cast(const AcRxObject* object);

  std::uint16_t colorIndex() const;
  // 0 by block, 256 by layer. The flag passes the colour on to attributes and vertices.
  virtual Acad::ErrorStatus setColorIndex(std::uint16_t index, bool subentities = true);
  AcDbObjectId layerId() const;
};

// Entities that a module makes belong to it until a block table record takes them; then close()
// ends the access, as for an opened one.
class AcDbLine : public AcDbEntity {
 public:
  AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);
  const AcRxClass* isA() const override;
  static const AcRxClass* desc();
};

class AcDbText : public AcDbEntity {
 public:
  // A null style is the drawing's Standard one. Rotation in radians.
  AcDbText(const AcGePoint3d& position, const wchar_t* text, AcDbObjectId style = {},
           double height = 0, double rotation = 0);
  const AcRxClass* isA() const override;
  static const AcRxClass* desc();
};

class AcDbBlockReference : public AcDbEntity {
 public:
  using AcDbEntity::AcDbEntity;
  const AcRxClass* isA() const override;
  static const AcRxClass* desc();
  static AcDbBlockReference* cast(const AcRxObject* object);

  AcDbObjectId blockTableRecord() const;
};

// Walks the entities of a block in their order. The maker deletes it.
class AcDbBlockTableRecordIterator {
 public:
  virtual ~AcDbBlockTableRecordIterator() = default;
  virtual void start(bool atBeginning = true, bool skipErased = true) = 0;
  virtual void step(bool forward = true, bool skipErased = true) = 0;
  virtual bool done() const = 0;
  // Opens the entity; the caller closes it.
  virtual Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode) = 0;
  virtual Acad::ErrorStatus getEntityId(AcDbObjectId& id) const = 0;
};

class AcDbBlockTableRecord : public AcDbObject {
 public:
  using AcDbObject::AcDbObject;
  const AcRxClass* isA() const override;
  static const AcRxClass* desc();
  static AcDbBlockTableRecord* cast(const AcRxObject* object);

  Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                bool skipErased = true) const;
  // Puts an entity that the module has made behind the others. On success the drawing owns it, and
  // the caller closes the handle; otherwise nothing has changed.
  Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
};

constexpr const wchar_t* kModelSpaceName = L"*Model_Space";

class AcDbBlockTable : public AcDbObject {
 public:
  using AcDbObject::AcDbObject;
  const AcRxClass* isA() const override;
  static const AcRxClass* desc();

  // Opens the record of that name; the caller closes it. Null unless eOk; eKeyNotFound.
  Acad::ErrorStatus getAt(const wchar_t* name, AcDbBlockTableRecord*& record, AcDb::OpenMode mode,
                          bool openErased = false) const;
};

class AcCmColor {
 public:
  AcCmColor() = default;
  explicit AcCmColor(std::uint16_t index) : index_(index) {}
  std::uint16_t colorIndex() const { return index_; }

 private:
  std::uint16_t index_ = 256;
};

class AcDbLayerTableRecord : public AcDbObject {
 public:
  using AcDbObject::AcDbObject;
  const AcRxClass* isA() const override;
  static const AcRxClass* desc();
  static AcDbLayerTableRecord* cast(const AcRxObject* object);

  AcCmColor color() const;
};

// Open calls: eOk with a handle that the caller closes; otherwise the pointer is null.
// eNotThatKindOfClass when the object isn't an entity; eWasErased when it is gone; eWasOpenForWrite
// and eWasOpenForRead when another handle is in the way: a writer must be the only one.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
