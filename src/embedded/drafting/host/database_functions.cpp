// Databases, ids and handles for modules.
#include <cwchar>

#include "embedded/drafting/database/clone.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/host/host_state.h"

using drafting::Session;

AcGeTol AcGeContext::gTol;

bool AcGePoint2d::isEqualTo(const AcGePoint2d& other, const AcGeTol& tolerance) const {
  return base::distance({x, y}, {other.x, other.y}) <= tolerance.equalPoint();
}

double AcGePoint3d::distanceTo(const AcGePoint3d& other) const {
  return std::hypot(other.x - x, other.y - y, other.z - z);
}

bool AcGePoint3d::isEqualTo(const AcGePoint3d& other, const AcGeTol& tolerance) const {
  return distanceTo(other) <= tolerance.equalPoint();
}

bool c5ObjIdIsEqualTo(const AcDbObjectId& a, const AcDbObjectId& b) { return a == b; }

AcDbHandle& AcDbHandle::operator=(const wchar_t* text) {
  value_ = 0;
  for (; *text; ++text) {
    const wchar_t c = *text >= L'a' && *text <= L'f' ? *text - L'a' + L'A' : *text;
    const wchar_t* digits = L"0123456789ABCDEF";
    const wchar_t* digit = std::wcschr(digits, c);
    if (!digit || value_ >> 60) {
      value_ = 0;
      break;
    }
    value_ = value_ << 4 | static_cast<std::uint64_t>(digit - digits);
  }
  return *this;
}

bool AcDbHandle::getIntoAsciiBuffer(wchar_t* buffer) const {
  int digits = 1;
  while (digits < 16 && value_ >> (4 * digits)) ++digits;
  for (int i = 0; i < digits; ++i)
    buffer[i] = L"0123456789ABCDEF"[value_ >> (4 * (digits - 1 - i)) & 15];
  buffer[digits] = 0;
  return true;
}

AcDbDatabase::AcDbDatabase(bool buildDefault, bool)
    : state_(std::make_shared<AcDbDatabaseState>(
          buildDefault ? drafting::Database::makeNew() : std::make_unique<drafting::Database>())) {}
AcDbDatabase::AcDbDatabase(std::shared_ptr<AcDbDatabaseState> state) : state_(std::move(state)) {}
AcDbDatabase::~AcDbDatabase() = default;

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool, const AcDbHandle& handle,
                                                std::uint32_t) {
  const drafting::Database* database = state_->database();
  if (!database) return Acad::eNoDatabase;
  if (handle.isNull() || handle.value() >= database->nextHandle()) return Acad::eUnknownHandle;
  id = state_->idOf(handle.value());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setBlipmode(bool on) {
  Session::active().variables.put("BLIPMODE", on ? 1 : 0);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const wchar_t* path, bool, int, const void*) {
  if (!state_->database() || Session::active().faults.fails("saveAs")) return Acad::eFileAccessErr;
  const base::Status status = drafting::saveDrawingFile(*state_->database(), drafting::utf8(path));
  return status.ok() ? Acad::eOk : Acad::eFileAccessErr;
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const wchar_t* path, int, bool, const wchar_t*) {
  if (drafting::serviceFails("readDwgFile")) return Acad::eFileAccessErr;
  auto database = drafting::readDrawing(drafting::utf8(path));
  if (!database.ok()) return Acad::eFileAccessErr;
  state_->replace(std::move(*database));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& out, AcDbObjectId block) {
  const drafting::Database* database = state_->database();
  if (!database) return Acad::eNoDatabase;
  if (block.isNull()) return Acad::eNullObjectId;
  if (block.stub()->database != state_.get()) return Acad::eInvalidInput;
  const auto* record = database->find<drafting::BlockRecord>(block.stub()->handle);
  if (!record) return Acad::eNotThatKindOfClass;
  if (Session::active().faults.fails("wblock")) return Acad::eFilerError;
  drafting::WrittenBlock written = drafting::drawingOfBlock(*database, *record);
  for (const std::string& loss : written.leftBehind) Session::active().print("\n" + loss);
  out = new AcDbDatabase(std::make_shared<AcDbDatabaseState>(std::move(written.drawing)));
  return Acad::eOk;
}

namespace {

// "" and "." stand for the usual arrowhead, anything else for a block of that name.
Acad::ErrorStatus setArrowhead(AcDbDatabaseState& state, const char* variable,
                               const wchar_t* name) {
  drafting::Database* database = state.database();
  if (!database) return Acad::eNoDatabase;
  const std::string wanted = drafting::utf8(name);
  drafting::Handle block = 0;
  if (!wanted.empty() && wanted != ".") {
    block = database->findRecord(drafting::Table::Blocks, wanted);
    if (block == 0) return Acad::eKeyNotFound;
  }
  database->setVariable(variable, block);
  return Acad::eOk;
}

}  // namespace

Acad::ErrorStatus AcDbDatabase::setDimblk(const wchar_t* name) {
  return setArrowhead(*state_, "DIMBLK", name);
}
Acad::ErrorStatus AcDbDatabase::setDimblk1(const wchar_t* name) {
  return setArrowhead(*state_, "DIMBLK1", name);
}
Acad::ErrorStatus AcDbDatabase::setDimblk2(const wchar_t* name) {
  return setArrowhead(*state_, "DIMBLK2", name);
}

AcGePoint3d AcDbDatabase::insbase() const {
  const drafting::Point3 base =
      state_->database() ? state_->database()->header.point("INSBASE") : drafting::Point3{};
  return {base.x, base.y, base.z};
}

namespace {

class Services : public AcDbHostApplicationServices {
 public:
  // The handle on the open drawing; made anew when another one is open.
  AcDbDatabase* workingDatabase() const override {
    Session* session = Session::activeOrNull();
    if (!session) return nullptr;
    drafting::currentState(*session);
    if (!working_ || working_->state() != session->document().state) {
      working_ = std::make_unique<AcDbDatabase>(session->document().state);
    }
    return working_.get();
  }

 private:
  mutable std::unique_ptr<AcDbDatabase> working_;
};

}  // namespace

AcDbHostApplicationServices* acdbHostApplicationServices() {
  static Services services;
  return &services;
}
