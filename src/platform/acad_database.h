// A drawing database, the ids and handles of its objects, and the host's way to the current one.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/acad_geometry.h"

struct Acad {
  enum ErrorStatus : std::int32_t {
    eOk = 0,
    eNotImplementedYet = 1,
    eInvalidInput = 3,
    eAmbiguousOutput = 7,
    eOutOfMemory = 10,
    eNoDatabase = 22,
    eNullObjectId = 78,
    eWasOpenForRead = 84,
    eWasOpenForWrite = 85,
    eWasErased = 87,
    eUnknownHandle = 35,
    eInvalidKey = 41,
    eNotThatKindOfClass = 65,
    eRegappIdNotFound = 106,
    eFileAccessErr = 145,
    eFilerError = 148,
    eKeyNotFound = 43,
  };
};

struct AcDb {
  enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
};

struct AcDbStub;          // the host's entry for one object, as long as the database lives
class AcDbDatabaseState;  // what the host keeps behind a database

// Names an object as long as its database lives; the object may be erased meanwhile.
class AcDbObjectId {
 public:
  AcDbObjectId() = default;
  explicit AcDbObjectId(AcDbStub* stub) : stub_(stub) {}
  bool isNull() const { return stub_ == nullptr; }
  void setNull() { stub_ = nullptr; }
  AcDbStub* stub() const { return stub_; }
  bool operator==(const AcDbObjectId&) const = default;

 private:
  AcDbStub* stub_ = nullptr;
};

using AcDbObjectIdArray = std::vector<AcDbObjectId>;

// Equality as a call: two null ids are equal.
bool c5ObjIdIsEqualTo(const AcDbObjectId& a, const AcDbObjectId& b);

// The number that a drawing's file keeps for an object.
class AcDbHandle {
 public:
  static constexpr int kAsciiSize = 17;  // characters of the text form, terminator included

  AcDbHandle() = default;
  explicit AcDbHandle(std::uint64_t value) : value_(value) {}
  // From hexadecimal text; a text that is none gives the null handle.
  AcDbHandle& operator=(const wchar_t* text);
  // Upper-case hexadecimal without leading zeros into a buffer of kAsciiSize characters.
  bool getIntoAsciiBuffer(wchar_t* buffer) const;
  bool isNull() const { return value_ == 0; }
  std::uint64_t value() const { return value_; }
  bool operator==(const AcDbHandle&) const = default;

 private:
  std::uint64_t value_ = 0;
};

class AcDbBlockTable;

// A drawing. The one that a document shows belongs to the host; a database made by a module belongs
// to the module, which deletes it.
class AcDbDatabase {
 public:
  // With buildDefault the tables and blocks of an empty drawing, otherwise nothing: for
  // readDwgFile.
  explicit AcDbDatabase(bool buildDefault = true, bool noDocument = false);
  explicit AcDbDatabase(std::shared_ptr<AcDbDatabaseState> state);
  ~AcDbDatabase();
  AcDbDatabase(const AcDbDatabase&) = delete;
  AcDbDatabase& operator=(const AcDbDatabase&) = delete;

  // Leaves the id alone when no object has the handle (eUnknownHandle); an erased one counts.
  Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool create, const AcDbHandle& handle,
                                    std::uint32_t xref = 0);
  Acad::ErrorStatus setBlipmode(bool on);

  // The block written out as a drawing of its own into a new database, which the caller deletes.
  Acad::ErrorStatus wblock(AcDbDatabase*& out, AcDbObjectId block);
  // version is the host's code of the file version; 23 is the one it knows.
  Acad::ErrorStatus saveAs(const wchar_t* path, bool keepBackup, int version, const void* unused);
  Acad::ErrorStatus readDwgFile(const wchar_t* path, int share, bool convertCodePage,
                                const wchar_t* password);
  AcGePoint3d insbase() const;
  // Copies the source's model space, moved by the matrix, into this one's; layers, styles and
  // blocks that are missing come along. eNotImplementedYet for a matrix that does more than move.
  // The source stays as it is, whatever preserve says.
  Acad::ErrorStatus insert(const AcGeMatrix3d& matrix, AcDbDatabase* source, bool preserve = true);
  // The table of blocks; the caller closes it. Null unless eOk.
  Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
  Acad::ErrorStatus setDimblk(const wchar_t* name);
  Acad::ErrorStatus setDimblk1(const wchar_t* name);
  Acad::ErrorStatus setDimblk2(const wchar_t* name);

  const std::shared_ptr<AcDbDatabaseState>& state() const { return state_; }  // for the host

 private:
  std::shared_ptr<AcDbDatabaseState> state_;
};

class AcDbHostApplicationServices {
 public:
  virtual ~AcDbHostApplicationServices() = default;
  // The current drawing's database, null when no drawing is open. The host owns it.
  virtual AcDbDatabase* workingDatabase() const = 0;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
