#include "store/circuit_drawing.h"

#include "module/information.h"
#include "platform/framework_messages.h"
#include "store/circuit_record.h"

namespace {

constexpr int kWireColour = 3;
constexpr int kByLayer = 256;
constexpr double kWireAbove = 0.5;  // of an empty cell's insertion point
constexpr double kWireBelow = 8.0;
constexpr double kNumberHeight = 5.0;
constexpr double kPi = 3.14159265;  // slides have always been drawn with this one
constexpr int kShare = 32;          // of readDwgFile: others may go on reading

constexpr const wchar_t* kNoRecord = L"打开块表记录失败!";
constexpr const wchar_t* kNoRecordForText = L"打开块表记录失败1";

bool fail(const wchar_t* message) {
  showMessageBox({.text = message, .caption = kCircuitCaption});
  return false;
}

AcGePoint3d flat(RowPoint point) { return {point.x, point.y, 0}; }

// Rows may end inside a text: what is missing counts as nothing.
template <typename Element>
Element at(const std::vector<Element>& list, std::size_t index) {
  return index < list.size() ? list[index] : Element();
}

}  // namespace

bool CircuitDrawing::addBlocks(const CircuitRow& circuit) {
  for (std::size_t n = 0; n < circuit.names.size(); ++n) {
    CString path;
    CString name = circuit.names[n];
    if (!symbols_.FindSymbolFile(name, path, kSymbolDrawing)) name = kEmptyCell;
    if (!addSymbol(name, flat(circuit.points[n]))) return false;
  }
  return true;
}

bool CircuitDrawing::addSymbol(const CString& name, const AcGePoint3d& place) {
  if (name == kEmptyCell) {
    return addStroke({place.x, place.y + kWireAbove, place.z},
                     {place.x, place.y - kWireBelow, place.z});
  }
  CString path;
  if (!symbols_.FindSymbolFile(name, path, kSymbolDrawing)) {
    return fail(L"\n数据文件中的块不在DWG搜索目录下.\n无法顺利完成插入工作!");
  }
  return insertFile(path.wide(), &place, L"\n读取文件失败!");
}

bool CircuitDrawing::addLines(const CircuitRow& circuit) {
  for (std::size_t n = 0; n < circuit.starts.size(); ++n) {
    if (!addStroke(flat(circuit.starts[n]), flat(circuit.ends[n]))) return false;
  }
  return true;
}

bool CircuitDrawing::addStroke(const AcGePoint3d& from, const AcGePoint3d& to) {
  auto line = std::make_unique<AcDbLine>(from, to);
  line->setColorIndex(kWireColour, true);
  return append(kNoRecord, std::move(line));
}

bool CircuitDrawing::addTexts(const CircuitRow& circuit) {
  for (std::size_t n = 0; n < circuit.texts.size(); ++n) {
    auto text = std::make_unique<AcDbText>(
        flat(at(circuit.textPoints, n)), circuit.texts[n].c_str(), AcDbObjectId(),
        at(circuit.heights, n), at(circuit.textAngles, n) / 180.0 * kPi);
    if (!addText(kNoRecordForText, std::move(text), at(circuit.colours, n))) return false;
  }
  return true;
}

// A colour that there isn't leaves the text in its layer's.
bool CircuitDrawing::addText(const wchar_t* noRecord, std::unique_ptr<AcDbText> text, int colour) {
  if (colour >= 0 && colour <= kByLayer) {
    text->setColorIndex(static_cast<std::uint16_t>(colour), true);
  }
  return append(noRecord, std::move(text));
}

bool CircuitDrawing::addNumber(const AcGePoint3d& place, const CString& number) {
  return append(kNoRecord, std::make_unique<AcDbText>(place, number.GetString(), AcDbObjectId(),
                                                      kNumberHeight, 0.0));
}

bool CircuitDrawing::addFrame() {
  std::wstring path = systemFolder();
  if (path.empty() || path.back() != L'\\') path += L'\\';
  return insertFile(path + L"SYSTEM\\t-Arr.dwg", nullptr, L"读取文件失败!");
}

// Puts the file's own base point to the place. Without one the frame goes to this drawing's base.
bool CircuitDrawing::insertFile(const std::wstring& path, const AcGePoint3d* place,
                                const wchar_t* unreadable) {
  AcDbDatabase source(false, false);
  if (source.readDwgFile(path.c_str(), kShare, false, nullptr) != Acad::eOk) {
    return fail(unreadable);
  }
  AcGePoint3d to = database_->insbase();
  if (place) {
    const AcGePoint3d base = source.insbase();
    to = {place->x - base.x, place->y - base.y, place->z - base.z};
  }
  AcGeMatrix3d matrix;
  matrix.setToTranslation({to.x, to.y, to.z});
  return database_->insert(matrix, &source, true) == Acad::eOk || fail(L"\n插入失败!");
}

bool CircuitDrawing::append(const wchar_t* noRecord, std::unique_ptr<AcDbEntity> entity) {
  AcDbBlockTableRecord* space = openModelSpace(noRecord);
  if (!space) return false;
  if (space->appendAcDbEntity(entity.get()) == Acad::eOk) entity.release()->close();
  space->close();
  return true;
}

// Null after a message; else the caller closes it.
AcDbBlockTableRecord* CircuitDrawing::openModelSpace(const wchar_t* noRecord) {
  AcDbBlockTable* table = nullptr;
  if (database_->getSymbolTable(table, AcDb::kForRead) != Acad::eOk) {
    fail(L"打开块表失败!");
    return nullptr;
  }
  AcDbBlockTableRecord* space = nullptr;
  if (table->getAt(kModelSpaceName, space, AcDb::kForWrite, false) != Acad::eOk) fail(noRecord);
  table->close();
  return space;
}
