// The two prompts of yczhlhz and what their keywords do.
#include "host/placing_command.h"

#include <algorithm>
#include <numbers>

#include "engine/aux_marker.h"
#include "engine/place_row.h"
#include "host/add_symbol.h"
#include "library_window/library_window.h"
#include "module/module_state.h"
#include "module/value_chain.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"

namespace {

constexpr const wchar_t* kAttributeRequests = L"ATTREQ";
constexpr const wchar_t* kNoCircuit = L"\n没有绘制主回路,无法使用辅助功能。";
constexpr const wchar_t* kAskPoint = L"\n请输入回路插入点<回车结束>:";
constexpr const wchar_t* kAskFirst = L"\n绘制回路S<回车返回>:";
constexpr const wchar_t* kAskNext = L"\n连续绘制回路S<回车返回>:";

// In units of the print scale.
constexpr double kCircuitStep = 100.0;
constexpr double kMarkerDrop = 132.4788;
constexpr double kDownwards = 4.71238898038469;

constexpr int kEndedByEnter = 1;

// The keyword's first character as a capital; 0 for an empty one.
wchar_t keyOf(const wchar_t* keyword) {
  const wchar_t c = keyword[0];
  return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

// The newest entity; null in an empty drawing.
AcDbObjectId newestEntity() {
  ads_name name{0, 0};
  AcDbObjectId id;
  if (acdbEntLast(name) != RTNORM || acdbGetObjectId(id, name) != Acad::eOk) return {};
  return id;
}

void setBlips(bool on) { acdbHostApplicationServices()->workingDatabase()->setBlipmode(on); }

// One step for the user's undo.
class UndoGroup {
 public:
  UndoGroup() { acedCommand(RTSTR, L"undo", RTSTR, L"begin", RTNONE); }
  ~UndoGroup() { acedCommand(RTSTR, L"undo", RTSTR, L"end", RTNONE); }
  UndoGroup(const UndoGroup&) = delete;
  UndoGroup& operator=(const UndoGroup&) = delete;
};

}  // namespace

int PlacingCommand::run() {
  armAttributes();
  ShowLibraryWindow();
  if (!readScale()) return RTERROR;
  for (;;) {
    Step step = Step::stay;
    while (step == Step::stay) step = askPoint();
    if (step == Step::end) return result_;
    firstId_ = lastId_ = newestEntity();
    for (step = Step::stay; step == Step::stay;) step = askKeyword();
    if (step == Step::end) return result_;
  }
}

// With ATTREQ at 1 the marker block's attribute takes the scale text. The value read here is never
// written back, so it stays at 1 after the command.
void PlacingCommand::armAttributes() {
  ValueChain saved(acutNewRb(RTSHORT));
  if (!saved || acedGetVar(kAttributeRequests, saved.get()) != RTNORM) {
    acutPrintf(L"\n获取ATTREQ失败");
  }
  ValueChain armed;
  armed.appendShort(RTSHORT, 1);
  if (acedSetVar(kAttributeRequests, armed.get()) != RTNORM) acutPrintf(L"\n设置ATTREQ失败");
}

bool PlacingCommand::readScale() {
  scale_ = readPrintScale();
  // The text begins with a tab; that is how the message has always been.
  if (!scale_.valid) acutPrintf(L"\tabScale数据无效.");
  return scale_.valid;
}

PlacingCommand::Step PlacingCommand::endWith(int result) {
  result_ = result;
  return Step::end;
}

PlacingCommand::Step PlacingCommand::askPoint() {
  wchar_t keyword[kAcadTextLimit] = L"";
  AcGePoint2d point;
  setBlips(true);
  acedInitGet(0, L"F N");
  const int result = GetPoint(nullptr, kAskPoint, 0, point, keyword);
  setBlips(false);
  if (result == RTNORM) {
    insertion_[0] = point.x;
    insertion_[1] = point.y;
    insertion_[2] = 0;
  }
  return answerPoint(result, keyOf(keyword));
}

PlacingCommand::Step PlacingCommand::answerPoint(int result, wchar_t key) {
  switch (result) {
    case RTNORM: return Step::next;
    case RTCAN: return endWith(RTCAN);
    case RTNONE: return endWith(kEndedByEnter);
    case RTKWORD: break;
    default: return Step::stay;
  }
  if (key == L'F') placeBelowMarker();
  return key == L'N' ? addSymbol() : Step::stay;
}

PlacingCommand::Step PlacingCommand::askKeyword() {
  wchar_t keyword[kAcadTextLimit] = L"";
  acedInitGet(0, L"S F N");
  const int result = acedGetKword(nothingDrawn() ? kAskFirst : kAskNext, keyword);
  if (result == RTCAN) return endWith(RTCAN);
  return result == RTNORM ? answerKeyword(keyOf(keyword)) : Step::next;
}

PlacingCommand::Step PlacingCommand::answerKeyword(wchar_t key) {
  switch (key) {
    case L'S': drawCircuit(); return Step::stay;
    case L'F': placeForChain(); return Step::stay;
    case L'N': return addSymbol();
    default: return Step::stay;
  }
}

// Equal ids mean that this chain has no circuit yet; in an empty drawing both are null.
bool PlacingCommand::nothingDrawn() const { return c5ObjIdIsEqualTo(firstId_, lastId_); }

void PlacingCommand::drawCircuit() {
  const UndoGroup group;
  slots_.clear();
  drawSelected();
  slots_.assign(static_cast<std::size_t>(libraryWindow()->GetFolderCount()), AcDbObjectId());
  picked_ = markerPoint();
  WriteAuxMarker(picked_, slots_);
}

// A free slot draws nothing and stays where it is. A row that fails has moved the point on.
void PlacingCommand::drawSelected() {
  CZhlkLibStore& store = libraryWindow()->Store();
  const int slot = store.GetSelection();
  CString name;
  if (!store.GetNameAt(slot, name) || name.IsEmpty()) return;
  CString row;
  store.GetRowAt(slot, row);
  PlaceRow(insertion_, row.wide());
  lastId_ = newestEntity();
  moveRight();
}

void PlacingCommand::moveRight() {
  ads_point moved;
  acutPolar(insertion_, 0.0, kCircuitStep * scale_.value, moved);
  std::copy(moved, moved + 3, insertion_);
}

// Below the circuit drawn last: one step back, then down.
AcGePoint2d PlacingCommand::markerPoint() const {
  ads_point back;
  ads_point below;
  acutPolar(insertion_, std::numbers::pi, kCircuitStep * scale_.value, back);
  acutPolar(back, kDownwards, kMarkerDrop * scale_.value, below);
  return {below[0], below[1]};
}

// The marker in the drawing tells where symbols go. One at (0, 0) without slots counts as none.
bool PlacingCommand::readMarker() {
  const bool found = ReadAuxMarker(picked_, slots_) == RTNORM;
  if (found && !(slots_.empty() && picked_.isEqualTo(AcGePoint2d()))) return true;
  acutPrintf(kNoCircuit);
  return false;
}

void PlacingCommand::placeAuxiliary() {
  const ads_point point = {picked_.x, picked_.y, 0};
  PlaceAuxSymbol(point, scale_.value, slots_);
  WriteAuxMarker(picked_, slots_);
}

void PlacingCommand::placeBelowMarker() {
  if (!readMarker()) return;
  const UndoGroup group;
  placeAuxiliary();
}

void PlacingCommand::placeForChain() {
  const UndoGroup group;
  if (!nothingDrawn()) {
    picked_ = markerPoint();
    placeAuxiliary();
  } else if (readMarker()) {
    placeAuxiliary();
    firstId_ = lastId_ = newestEntity();
  }
}

PlacingCommand::Step PlacingCommand::addSymbol() {
  return AddSymbolFromDrawing() == RTCAN ? endWith(RTCAN) : Step::stay;
}
