#include "editor/windows/edit_view.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "editor/cell_clicks.h"
#include "editor/windows/circuit_dialog.h"
#include "platform/common_funcs.h"
#include "platform/slide_store.h"
#include "store/pixels.h"

namespace {

constexpr COLORREF kLineColour = RGB(255, 0, 0);
constexpr double kPixelsPerTextHeight = 3.0;
constexpr double kTenthsPerDegree = 10.0;
// A damaged row's text may be of any height; no screen shows more of one than this.
constexpr double kMostFontPixels = 4000;

// The colour behind an index; an index that there isn't has that of 7.
COLORREF textColour(int index) {
  constexpr int kPlain = 7;
  const int row = index >= 0 && index < kHostColours ? index : kPlain;
  const std::uint8_t* colour = lpszRGBData + 3 * row;
  return RGB(colour[0], colour[1], colour[2]);
}

LOGFONTW fontFor(const ZhlkElement& text) {
  constexpr wchar_t kFace[] = L"宋体";
  LOGFONTW font{};
  font.lfHeight = -toPixels(std::min(text.textHeight * kPixelsPerTextHeight, kMostFontPixels));
  font.lfEscapement = toPixels(text.textAngle * kTenthsPerDegree);
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = GB2312_CHARSET;
  font.lfClipPrecision = CLIP_LH_ANGLES;
  std::copy(std::begin(kFace), std::end(kFace), font.lfFaceName);
  return font;
}

}  // namespace

IMPLEMENT_DYNCREATE(CZHlkEditView, CScrollView)

BEGIN_MESSAGE_MAP(CZHlkEditView, CScrollView)
ON_WM_ERASEBKGND()
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_MOUSEACTIVATE()
END_MESSAGE_MAP()

BOOL CZHlkEditView::Create(const wchar_t* className, const wchar_t* title, DWORD style,
                           const RECT& rect, CWnd* parent, UINT id, CCreateContext* context) {
  return CWnd::Create(className, title, style, rect, parent, id, context);
}

CZHlkhlbjDlg& CZHlkEditView::dialog() const { return *static_cast<CZHlkhlbjDlg*>(GetParent()); }

void CZHlkEditView::OnInitialUpdate() {
  CScrollView::OnInitialUpdate();
  SetScrollSizes(MM_TEXT, {400, 400});
}

void CZHlkEditView::OnDraw(CDC* dc) {
  dc->SetBkMode(TRANSPARENT);
  drawBlocks(*dc);
  drawTexts(*dc);
  drawLines(*dc);
  SetScrollSizes(MM_TEXT, dialog().record.scrollSize);
}

// A covered cell shows nothing, a block without a slide its frame alone.
void CZHlkEditView::drawBlocks(CDC& dc) const {
  const CZhlkCircuitRecord& circuit = dialog().record;
  CGraphnored graph;
  graph.dc = &dc;
  ZhlkElement block;
  for (int n = 0; n < circuit.GetBlockCount(); ++n) {
    circuit.ReadElement(static_cast<std::uint16_t>(n), block, kBlockElement);
    if (block.blockName == kCoveredCell) continue;
    const CRect cell(block.symbolRect);
    if (block.slide.GetSize() >= 1) {
      graph.Draw(reinterpret_cast<const char*>(block.slide.GetData()),
                 static_cast<std::uint32_t>(block.slide.GetSize()), cell.Width(), cell.Height(),
                 cell.left, cell.top, 0, 0);
    }
    dc.Draw3dRect(cell, ::GetSysColor(COLOR_BTNHIGHLIGHT), ::GetSysColor(COLOR_BTNSHADOW));
  }
}

// A text that can't be read draws with the fields of the one before: it is meant.
void CZHlkEditView::drawTexts(CDC& dc) const {
  const CZhlkCircuitRecord& circuit = dialog().record;
  ZhlkElement text;
  for (int n = 0; n < circuit.GetTextCount(); ++n) {
    circuit.ReadElement(static_cast<std::uint16_t>(n), text, kTextElement);
    const LOGFONTW description = fontFor(text);
    CFont font;
    font.CreateFontIndirect(&description);
    CFont* old = dc.SelectObject(&font);
    dc.SetTextColor(textColour(text.colour));
    dc.TextOut(text.corners[3].x, text.corners[3].y, text.text);
    dc.SelectObject(old);
  }
}

void CZHlkEditView::drawLines(CDC& dc) const {
  const CZhlkCircuitRecord& circuit = dialog().record;
  CPen pen(PS_SOLID, 1, kLineColour);
  CPen* old = dc.SelectObject(&pen);
  ZhlkElement line;
  for (int n = 0; n < circuit.GetLineCount(); ++n) {
    circuit.ReadElement(static_cast<std::uint16_t>(n), line, kLineElement);
    dc.MoveTo(line.lineStart.x, line.lineStart.y);
    dc.LineTo(line.lineEnd.x, line.lineEnd.y);
  }
  dc.SelectObject(old);
}

BOOL CZHlkEditView::OnEraseBkgnd(CDC* dc) {
  CRect client;
  GetClientRect(client);
  CBrush brush;
  brush.CreateSysColorBrush(COLOR_BTNFACE);
  dc->FillRect(client, &brush);
  return TRUE;
}

CPoint CZHlkEditView::onSurface(CPoint client) const {
  const CPoint corner = GetDeviceScrollPosition();
  return {client.x + corner.x, client.y + corner.y};
}

void CZHlkEditView::repaint(RECT surface) {
  const CPoint corner = GetDeviceScrollPosition();
  const auto back = [](LONG& edge, LONG by) { edge = moved(edge, -by); };
  back(surface.left, corner.x);
  back(surface.right, corner.x);
  back(surface.top, corner.y);
  back(surface.bottom, corner.y);
  InvalidateRect(&surface);
}

void CZHlkEditView::OnLButtonDown(UINT, CPoint point) {
  if (const auto changed =
          placeSymbol(dialog().record, onSurface(point), dialog().CurrentSymbol())) {
    repaint(*changed);
  }
  Default();
}

void CZHlkEditView::OnRButtonDown(UINT, CPoint point) {
  if (const auto changed = clearCell(dialog().record, onSurface(point))) repaint(*changed);
  Default();
}

void CZHlkEditView::OnHScroll(UINT code, UINT position, CWnd* bar) {
  CScrollView::OnHScroll(code, position, bar);
}

void CZHlkEditView::OnVScroll(UINT code, UINT position, CWnd* bar) {
  CScrollView::OnVScroll(code, position, bar);
}

// There is no frame above the view that a click could make it active in.
int CZHlkEditView::OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
