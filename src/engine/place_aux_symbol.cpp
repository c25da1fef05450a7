// Places the auxiliary symbol that was chosen in the bar. The choice is read from the bar's file,
// which the click has written, and not from the bar.
#include "engine/aux_marker.h"
#include "engine/block_colours.h"
#include "module/information.h"
#include "module/tree_values.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "platform/framework_runtime.h"

namespace {

struct Choice {
  std::wstring path;  // of the symbol's drawing; empty when nothing is chosen
  int folder = 0;     // index in the bar
};

Choice readChoice() {
  CQuillDpData store;
  store.ReadDataFromQdpFile((libraryFolder() + L"zhlFzgn.qdp").c_str());
  Choice choice;
  choice.path = valueOr(store.GetSubValueFromPathW(0, L"当前选择\\块名"), L"");
  choice.folder =
      wideToInt(valueOr(store.GetSubValueFromPathW(0, L"当前选择\\类型"), L"0").c_str());
  return choice;
}

// The folder's slot; null when the folder has none.
AcDbObjectId* slotOf(int folder, AcDbObjectIdArray& slots) {
  if (folder < 0 || static_cast<std::size_t>(folder) >= slots.size()) return nullptr;
  return &slots[static_cast<std::size_t>(folder)];
}

void eraseEarlier(const AcDbObjectId& id) {
  AcDbEntity* symbol = nullptr;
  if (acdbOpenAcDbEntity(symbol, id, AcDb::kForRead) != Acad::eOk) return;
  symbol->close();
  EraseObject(id);
}

}  // namespace

int PlaceAuxSymbol(const ads_point point, double scale, AcDbObjectIdArray& slots) {
  const Choice choice = readChoice();
  if (choice.path.empty()) return 0;
  AcDbObjectId* slot = slotOf(choice.folder, slots);
  if (slot && !slot->isNull()) eraseEarlier(*slot);
  SetToCurrentLayer(L"SCHEMATIC", L"ELEMENT", nullptr, nullptr);
  acedCommand(RTSTR, L"insert", RTSTR, choice.path.c_str(), RTPOINT, point, RTREAL, scale, RTREAL,
              scale, RTREAL, 0.0, RTNONE);
  ads_name name{0, 0};
  AcDbObjectId id;
  if (acdbEntLast(name) != RTNORM || acdbGetObjectId(id, name) != Acad::eOk) {
    acutPrintf(L"\n获取实体Id失败");
    return RTERROR;
  }
  if (slot) *slot = id;
  AcDbEntity* symbol = nullptr;
  if (acdbOpenAcDbEntity(symbol, id, AcDb::kForWrite) == Acad::eOk) {
    NormaliseBlockColours(*symbol);
    symbol->close();
  }
  return 0;
}
