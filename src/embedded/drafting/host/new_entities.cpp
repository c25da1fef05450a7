// What modules build drawings with: entities of their own, the table of blocks, and drawings put
// into one another.
#include "embedded/drafting/database/clone.h"
#include "embedded/drafting/host/open_object.h"

using drafting::OpenObject;
using drafting::openObject;
using drafting::serviceFails;
using drafting::Session;

namespace {

std::unique_ptr<AcDbObjectState> newLine(const AcGePoint3d& start, const AcGePoint3d& end) {
  auto line = std::make_unique<drafting::Line>();
  line->start = {start.x, start.y, start.z};
  line->end = {end.x, end.y, end.z};
  return std::make_unique<OpenObject>(std::move(line));
}

std::unique_ptr<AcDbObjectState> newText(const AcGePoint3d& position, const wchar_t* content,
                                         AcDbObjectId style, double height, double rotation) {
  auto text = std::make_unique<drafting::Text>();
  text->position = text->alignment = {position.x, position.y};
  text->elevation = position.z;
  text->text = drafting::utf8(content);
  text->style = style.isNull() ? 0 : style.stub()->handle;
  text->height = height;
  text->rotation = rotation;
  return std::make_unique<OpenObject>(std::move(text));
}

// Null when the matrix does more than move.
std::optional<drafting::Point3> movementOf(const AcGeMatrix3d& matrix) {
  const AcGeMatrix3d identity;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < (row < 3 ? 3 : 4); ++column) {
      if (matrix(row, column) != identity(row, column)) return std::nullopt;
    }
  }
  return drafting::Point3{matrix(0, 3), matrix(1, 3), matrix(2, 3)};
}

}  // namespace

AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end)
    : AcDbEntity(newLine(start, end)) {}

AcDbText::AcDbText(const AcGePoint3d& position, const wchar_t* text, AcDbObjectId style,
                   double height, double rotation)
    : AcDbEntity(newText(position, text, style, height, rotation)) {}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
  OpenObject& record = openObject(*this);
  auto* block = record.find<drafting::BlockRecord>();
  if (!block) return Acad::eWasErased;
  if (!record.forWrite()) return Acad::eWasOpenForRead;
  OpenObject& made = openObject(*entity);
  if (!made.fresh()) return Acad::eInvalidInput;
  if (serviceFails("appendAcDbEntity")) return Acad::eOutOfMemory;
  const drafting::Database& database = *record.database();
  made.fresh()->layer = database.findRecord(drafting::Table::Layers, "0");
  if (auto* text = dynamic_cast<drafting::Text*>(made.fresh()); text && text->style == 0) {
    text->style = database.findRecord(drafting::Table::Styles, "Standard");
  }
  made.join(*record.id().stub()->database, *block);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTable::getAt(const wchar_t* name, AcDbBlockTableRecord*& record,
                                        AcDb::OpenMode mode, bool) const {
  record = nullptr;
  if (serviceFails("getAt")) return Acad::eInvalidKey;
  OpenObject& table = openObject(*this);
  if (!table.database()) return Acad::eNoDatabase;
  const drafting::Handle found =
      table.database()->findRecord(drafting::Table::Blocks, drafting::utf8(name));
  if (found == 0) return Acad::eKeyNotFound;
  AcDbObject* object = nullptr;
  const Acad::ErrorStatus status = acdbOpenAcDbObject(object, table.idOf(found), mode);
  record = static_cast<AcDbBlockTableRecord*>(object);
  return status;
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
  table = nullptr;
  if (serviceFails("getSymbolTable")) return Acad::eInvalidKey;
  if (!state_->database()) return Acad::eNoDatabase;
  const AcDbObjectId id = state_->idOf(state_->database()->table(drafting::Table::Blocks).handle);
  const bool forWrite = mode == AcDb::kForWrite;
  if (id.stub()->writer) return Acad::eWasOpenForWrite;
  if (forWrite && id.stub()->readers > 0) return Acad::eWasOpenForRead;
  table = new AcDbBlockTable(std::make_unique<OpenObject>(id, forWrite));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::insert(const AcGeMatrix3d& matrix, AcDbDatabase* source, bool) {
  if (!source) return Acad::eInvalidInput;
  if (!state_->database() || !source->state_->database()) return Acad::eNoDatabase;
  const auto by = movementOf(matrix);
  if (!by) return Acad::eNotImplementedYet;
  if (serviceFails("insert")) return Acad::eFilerError;
  const auto leftBehind =
      drafting::cloneMoved(*state_->database(), *source->state_->database(), *by);
  for (const std::string& loss : leftBehind) {
    if (Session* session = Session::activeOrNull()) session->print("\n" + loss);
  }
  return Acad::eOk;
}
