// CGraph and CGraphnored.
#include "embedded/base/colour_table.h"
#include "embedded/slide_store/cell_grid.h"
#include "embedded/slide_store/slide.h"
#include "embedded/slide_store/slide_painter.h"
#include "embedded/slide_store/windows/gdi_canvas.h"
#include "embedded/slide_store/windows/slide_on_dc.h"
#include "platform/framework_dc.h"
#include "platform/slide_store.h"

namespace slide_store {

bool drawSlide(HDC dc, std::string_view slide, int left, int top, int width, int height) {
  if (!dc || width < 1 || height < 1 || !readSlideHeader(slide).ok()) return false;
  GdiCanvas canvas(dc, left, top, width, height);
  const base::Box2 box{{0, 0}, {width - 1.0, height - 1.0}};
  static_cast<void>(paintSlide(slide, box, {base::screenColour, 1}, canvas));
  return true;
}

}  // namespace slide_store

namespace {

constexpr COLORREF kGridColour = RGB(128, 128, 128);

slide_store::PixelRect pixelsOf(const RECT& r) {
  return {static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.right),
          static_cast<int>(r.bottom)};
}

void draw(CDC* dc, const char* data, std::uint32_t size, int width, int height, int x, int y) {
  if (!dc || !data) return;
  slide_store::drawSlide(dc->GetSafeHdc(), {data, size}, x, y, width, height);
}

}  // namespace

void CGraph::Draw(const char* data, std::uint32_t size, int width, int height, int x, int y, int,
                  int) {
  draw(dc, data, size, width, height, x, y);
}

void CGraph::DrawGrid(const RECT& rectangle, int columns, int rows, int left, int top) {
  if (!dc) return;
  const slide_store::CellGrid grid(pixelsOf(rectangle), columns, rows);
  for (const auto& line : grid.lines(left, top)) {
    dc->FillSolidRect(line.left, line.top, line.right - line.left, line.bottom - line.top,
                      kGridColour);
  }
}

void CGraph::HighLightBlock(const RECT& rectangle, int columns, int rows, int page, int cell, int) {
  if (!dc) return;
  const auto place =
      slide_store::CellGrid(pixelsOf(rectangle), columns, rows).cellOnPage(page, cell);
  if (!place) return;
  for (const auto& piece : slide_store::markOf(*place)) {
    dc->PatBlt(piece.left, piece.top, piece.right - piece.left, piece.bottom - piece.top,
               DSTINVERT);
  }
}

void CGraphnored::Draw(const char* data, std::uint32_t size, int width, int height, int x, int y,
                       int, int) {
  draw(dc, data, size, width, height, x, y);
}
