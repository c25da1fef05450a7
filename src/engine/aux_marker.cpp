// Reads and writes the marker.
#include "engine/aux_marker.h"

#include <algorithm>
#include <limits>

#include "module/value_chain.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "platform/framework_runtime.h"

namespace {

constexpr const wchar_t* kApplication = L"ZHLKFZGN";
constexpr const wchar_t* kEmptySlot = L"空";
constexpr const wchar_t* kNoEntityId = L"\n获取实体Id失败";
constexpr const wchar_t* kNotOpened = L"\nOpen实体Id失败";
constexpr const wchar_t* kWrongData = L"\n扩展实体数据不正确";

// Group codes of the chain.
constexpr int kApplicationGroup = 1001;
constexpr int kCountGroup = 1070;
constexpr int kTextGroup = 1000;
constexpr int kPositionGroup = 1011;
constexpr int kLastTextGroup = 1003;
constexpr int kFirstPointGroup = 1010;
constexpr int kLastPointGroup = 1013;

std::wstring markerLayer() {
  LayerInfo layer;
  GetDQLayerName(L"SCHEMATIC", L"ELEMENT", layer);
  return layer.name;
}

// The drawing's markers, oldest first; the set is freed at the end of this object's life.
class MarkerSet {
 public:
  MarkerSet() {
    std::wstring type = L"POINT";
    std::wstring layer = markerLayer();
    std::wstring application = kApplication;
    resbuf named{nullptr, kApplicationGroup, {}};
    named.resval.rstring = application.data();
    resbuf extended{&named, -3, {}};
    resbuf onLayer{&extended, 8, {}};
    onLayer.resval.rstring = layer.data();
    resbuf filter{&onLayer, 0, {}};
    filter.resval.rstring = type.data();
    found_ = acedSSGet(L"X", nullptr, nullptr, &filter, set_) == RTNORM;
  }
  ~MarkerSet() {
    if (found_) acedSSFree(set_);
  }
  MarkerSet(const MarkerSet&) = delete;
  MarkerSet& operator=(const MarkerSet&) = delete;

  bool found() const { return found_; }

  void erase() {
    if (found_) acedCommand(RTSTR, L"ERASE", RTPICKS, set_, RTSTR, L"", RTNONE);
  }

  AcDbObjectId first() const {
    ads_name name{0, 0};
    acedSSName(set_, 0, name);
    AcDbObjectId id;
    return acdbGetObjectId(id, name) == Acad::eOk ? id : AcDbObjectId();
  }

 private:
  ads_name set_{0, 0};
  bool found_ = false;
};

bool currentLayerIs(const std::wstring& layer) {
  ValueChain current(acutNewRb(RTSTR));
  if (!current || acedGetVar(L"CLAYER", current.get()) != RTNORM) return false;
  const wchar_t* name = current.get()->resval.rstring;
  return name && equalWithoutCase(std::wstring_view(name), layer);
}

std::wstring slotText(const AcDbObjectId& id) {
  AcDbEntity* symbol = nullptr;
  if (acdbOpenAcDbEntity(symbol, id, AcDb::kForRead) != Acad::eOk) return kEmptySlot;
  AcDbHandle handle;
  symbol->getAcDbHandle(handle);
  symbol->close();
  wchar_t text[AcDbHandle::kAsciiSize];
  return handle.getIntoAsciiBuffer(text) ? text : kEmptySlot;
}

void fillChain(ValueChain& chain, const AcGePoint2d& point, const AcDbObjectIdArray& slots) {
  const std::size_t count =
      std::min<std::size_t>(slots.size(), std::numeric_limits<std::int16_t>::max());
  chain.appendText(kApplicationGroup, kApplication);
  chain.appendShort(kCountGroup, static_cast<std::int16_t>(count));
  for (std::size_t i = 0; i < count; ++i) chain.appendText(kTextGroup, slotText(slots[i]));
  chain.appendPoint(kPositionGroup, {point.x, point.y, 0});
}

// The reading of one marker's data: message null when all went well.
struct MarkerData {
  const wchar_t* message = nullptr;
  AcGePoint2d point;
  AcDbObjectIdArray slots;
};

// Nothing behind the count is tested: a link of another kind reads as an unknown handle or (0, 0).
AcDbHandle handleOf(const resbuf& link) {
  AcDbHandle handle;
  if (link.restype >= kTextGroup && link.restype <= kLastTextGroup && link.resval.rstring) {
    handle = link.resval.rstring;
  }
  return handle;
}

AcGePoint2d positionOf(const resbuf& link) {
  if (link.restype < kFirstPointGroup || link.restype > kLastPointGroup) return {};
  return {link.resval.rpoint[0], link.resval.rpoint[1]};
}

std::int32_t linksOf(const resbuf* chain) {
  std::int32_t count = 0;
  for (; chain; chain = chain->rbnext) ++count;
  return count;
}

void readSlots(const resbuf* count, AcDbObjectId marker, MarkerData& data) {
  const std::int16_t slots = count->resval.rint;
  // Each slot takes a link, and so does the position.
  if (slots < 0 || slots >= linksOf(count->rbnext)) {
    data.message = kWrongData;
    return;
  }
  AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
  // One variable for all slots: a handle that isn't known leaves the slot before it, at first the
  // marker itself.
  AcDbObjectId id = marker;
  const resbuf* link = count->rbnext;
  for (std::int16_t i = 0; i < slots; ++i, link = link->rbnext) {
    drawing->getAcDbObjectId(id, false, handleOf(*link), 0);
    data.slots.push_back(id);
  }
  data.point = positionOf(*link);
}

MarkerData readMarker(const MarkerSet& set) {
  MarkerData data;
  const AcDbObjectId id = set.first();
  if (id.isNull()) return {kNoEntityId, {}, {}};
  AcDbEntity* marker = nullptr;
  if (acdbOpenAcDbEntity(marker, id, AcDb::kForRead) != Acad::eOk) return {kNotOpened, {}, {}};
  const ValueChain chain(marker->xData(kApplication));
  marker->close();
  if (!chain) return {L"\n没有得到扩展实体数据", {}, {}};
  const resbuf* count = chain.get()->rbnext;
  if (!count || count->restype != kCountGroup) return {kWrongData, {}, {}};
  readSlots(count, id, data);
  return data;
}

// The point made by the last command, or null after a message.
AcDbEntity* openNewMarker() {
  ads_name name{0, 0};
  AcDbObjectId id;
  if (acdbEntLast(name) != RTNORM || acdbGetObjectId(id, name) != Acad::eOk) {
    acutPrintf(kNoEntityId);
    return nullptr;
  }
  AcDbEntity* marker = nullptr;
  if (acdbOpenAcDbEntity(marker, id, AcDb::kForRead) == Acad::eOk) return marker;
  acutPrintf(kNotOpened);
  return nullptr;
}

}  // namespace

int ReadAuxMarker(AcGePoint2d& point, AcDbObjectIdArray& slots) {
  point = {};
  slots.clear();
  const MarkerSet set;
  if (!set.found()) return RTERROR;
  MarkerData data = readMarker(set);
  if (data.message) {
    acutPrintf(data.message);
    return RTERROR;
  }
  point = data.point;
  slots = std::move(data.slots);
  return RTNORM;
}

int WriteAuxMarker(const AcGePoint2d& point, const AcDbObjectIdArray& slots) {
  MarkerSet().erase();
  // A circuit or symbol just placed has left this layer current; the command can also come here
  // without either, and a marker on another layer would never be found again.
  if (!currentLayerIs(markerLayer())) {
    SetToCurrentLayer(L"SCHEMATIC", L"ELEMENT", nullptr, nullptr);
  }
  const ads_point position = {point.x, point.y, 0};
  acedCommand(RTSTR, L"POINT", RTPOINT, position, RTNONE);
  AcDbEntity* marker = openNewMarker();
  if (!marker) return RTERROR;
  acdbRegApp(kApplication);
  ValueChain chain;
  fillChain(chain, point, slots);
  if (marker->upgradeOpen() == Acad::eOk) marker->setXData(chain.get());
  marker->close();
  return RTNORM;
}
