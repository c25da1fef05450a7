// Placing: the marker block with the scale, the lines from last to first, the blocks with their
// extended data, the texts.
#include "engine/place_row.h"

#include "engine/block_colours.h"
#include "engine/print_scale.h"
#include "engine/row_mapping.h"
#include "engine/row_reader.h"
#include "engine/symbol_search.h"
#include "module/value_chain.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "platform/framework_files.h"

namespace {

constexpr const wchar_t* kMarkerFile = L"system\\Fah.dwg";
constexpr const wchar_t* kIndexApplication = L"TKSY";
constexpr const wchar_t* kSpecificationApplication = L"XHGG";
constexpr const wchar_t* kNoEntityId = L"\n获取实体Id失败";

int fail(const wchar_t* message) {
  acutPrintf(message);
  return RTERROR;
}

void addText(const ads_name entity, const wchar_t* application, const std::wstring& text) {
  ValueChain chain;
  chain.appendText(RTSTR, text);
  AddXdata(entity, application, chain.get());
}

// What the row left out counts as 0.
template <typename Value>
Value valueAt(const std::vector<Value>& list, std::size_t index) {
  return index < list.size() ? list[index] : Value{};
}

// Gives the newest entity the colour of its layer as a fixed index.
int SetLineColourFromLayer() {
  ads_name name;
  if (acdbEntLast(name) != RTNORM) return fail(L"\n获取插入的线实体失败!");
  AcDbObjectId id;
  if (acdbGetObjectId(id, name) != Acad::eOk) return fail(kNoEntityId);
  AcDbEntity* line = nullptr;
  if (acdbOpenAcDbEntity(line, id, AcDb::kForWrite) != Acad::eOk) return RTERROR;
  AcDbObject* layer = nullptr;
  if (acdbOpenAcDbObject(layer, line->layerId(), AcDb::kForRead) == Acad::eOk) {
    if (const auto* record = AcDbLayerTableRecord::cast(layer)) {
      line->setColorIndex(record->color().colorIndex(), true);
    }
    layer->close();
  }
  line->close();
  return RTNORM;
}

// Keeps the current text style and puts it back.
class StandardTextStyle {
 public:
  StandardTextStyle() : saved_(acutNewRb(RTSTR)) {
    known_ = saved_ && acedGetVar(kVariable, saved_.get()) == RTNORM;
    ValueChain standard;
    standard.appendText(RTSTR, L"Standard");
    acedSetVar(kVariable, standard.get());
  }
  ~StandardTextStyle() {
    if (known_) acedSetVar(kVariable, saved_.get());
  }
  StandardTextStyle(const StandardTextStyle&) = delete;
  StandardTextStyle& operator=(const StandardTextStyle&) = delete;

 private:
  static constexpr const wchar_t* kVariable = L"TEXTSTYLE";
  ValueChain saved_;
  bool known_ = false;
};

class RowPlacement {
 public:
  explicit RowPlacement(const ads_point point) : insertion_(point) {}

  int run(const std::wstring& text) {
    if (findMarkerFile() != RTNORM) return RTERROR;
    scale_ = readPrintScale();
    if (!scale_.valid) return fail(L"\nTabScale数据无效.");
    RowReading reading = readRow(text);
    if (!reading.ok()) return fail(reading.message.c_str());
    row_ = std::move(reading.row);
    return draw();
  }

 private:
  int findMarkerFile() {
    wchar_t folder[kInformationLimit] = L"";
    if (GetInformation(L"ZEMMain", L"ZemSys", L"", folder, 1) < 1) {
      return fail(L"\n读取注册表项ZemSys错误.");
    }
    markerPath_ = folder;
    if (markerPath_.empty()) return fail(L"\n注册表项ZemSys数据无效.");
    if (markerPath_.back() != L'\\') markerPath_ += L'\\';
    markerPath_ += kMarkerFile;
    CFileStatus status;
    if (CFile::GetStatus(markerPath_.c_str(), status)) return RTNORM;
    acutPrintf(L"\n文件%s不存在.", markerPath_.c_str());
    return RTERROR;
  }

  int draw() {
    drawMarker();
    SetToCurrentLayer(L"SCHEMATIC", L"ELEMENT", nullptr, nullptr);
    for (std::size_t i = row_.starts.size(); i-- > 0;) drawLine(i);
    for (std::size_t i = 0; i < row_.names.size(); ++i) {
      if (drawBlock(i) != RTNORM) return RTERROR;
    }
    const StandardTextStyle style;
    for (std::size_t i = 0; i < row_.texts.size(); ++i) drawText(i);
    return RTNORM;
  }

  void drawMarker() {
    SetToCurrentLayer(L"DISTRIBUTION", L"ATTPOINT", nullptr, nullptr);
    acedCommand(RTSTR, L"insert", RTSTR, markerPath_.c_str(), RTPOINT, insertion_, RTSTR, L"",
                RTSTR, L"", RTSTR, L"", RTSTR, scale_.text.c_str(), RTNONE);
  }

  void drawLine(std::size_t i) {
    const double width = kLineWidth * scale_.value;
    ads_point start;
    ads_point end;
    map(row_.starts[i], start);
    map(row_.ends[i], end);
    acedCommand(RTSTR, L"PLINE", RTPOINT, start, RTSTR, L"W", RTREAL, width, RTSTR, L"", RTPOINT,
                end, RTSTR, L"", RTNONE);
    SetLineColourFromLayer();
  }

  int drawBlock(std::size_t i) {
    std::wstring& name = row_.names[i];
    std::wstring path;
    if (!SearchSymbolFile(L"DWG", name.c_str(), path)) {
      acutPrintf(L"\n数据文件中的块%s不在DWG搜索目录下.\n无法顺利完成插入工作!", name.c_str());
      return RTERROR;
    }
    name = path;
    ads_point point;
    map(row_.points[i], point);
    const double angle = row_.angles[i] + direction_ * kQuarterTurn;
    acedCommand(RTSTR, L"insert", RTSTR, path.c_str(), RTPOINT, point, RTREAL, scale_.value, RTREAL,
                scale_.value, RTREAL, angle, RTNONE);
    return tagBlock(i, path);
  }

  int tagBlock(std::size_t i, const std::wstring& path) {
    ads_name entity;
    if (acdbEntLast(entity) != RTNORM) return fail(L"\n获取插入的块实体失败!");
    addText(entity, kIndexApplication, ReadSymbolIndex(path));
    const std::wstring& specification = row_.specifications[i];
    if (!specification.empty()) addText(entity, kSpecificationApplication, specification);
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk) return fail(kNoEntityId);
    AcDbEntity* block = nullptr;
    if (acdbOpenAcDbEntity(block, id, AcDb::kForWrite) == Acad::eOk) {
      NormaliseBlockColours(*block);
      block->close();
    }
    blockIds_.push_back(id);
    return RTNORM;
  }

  void drawText(std::size_t i) {
    const std::wstring& text = row_.texts[i];
    if (text.empty()) return;
    ads_point point;
    map(valueAt(row_.textPoints, i), point);
    acedCommand(RTSTR, L"COLOR", RTSHORT, valueAt(row_.colours, i), RTNONE);
    acedCommand(RTSTR, L"TEXT", RTPOINT, point, RTREAL, valueAt(row_.heights, i) * scale_.value,
                RTREAL, valueAt(row_.textAngles, i), RTSTR, text.c_str(), RTNONE);
  }

  void map(const RowPoint& from, ads_point to) const {
    const RowPoint mapped =
        mapRowPoint(from, direction_, scale_.value, {insertion_[0], insertion_[1]});
    to[0] = mapped.x;
    to[1] = mapped.y;
    to[2] = 0;
  }

  const double* insertion_;
  int direction_ = 0;  // quarter turns; nothing turns a row, but the way through the code is kept
  std::wstring markerPath_;
  PrintScale scale_;
  CircuitRow row_;
  AcDbObjectIdArray blockIds_;
};

}  // namespace

int PlaceRow(const ads_point point, const std::wstring& row) {
  return RowPlacement(point).run(row);
}
