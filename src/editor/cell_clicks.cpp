// The cases of a click: single and wide symbols in place of single and wide ones.
#include "editor/cell_clicks.h"

#include <cstdint>
#include <cstdlib>

#include "store/cell_lattice.h"
#include "store/circuit_record.h"
#include "store/pixels.h"

namespace {

// Pixels. The columns stand 25 apart: the step lands within the neighbour, one pixel off its
// middle, which a cell widened from its side keeps.
constexpr std::int32_t kStep = 24;
constexpr std::int32_t kHalfHeight = kCellHeight / 2;
constexpr std::int32_t kBottomRowTop = 314;
constexpr std::int32_t kTopTolerance = 10;

RECT around(const POINT& centre, std::int32_t halfWidth) {
  return {moved(centre.x, -halfWidth), moved(centre.y, -kHalfHeight), moved(centre.x, halfWidth),
          moved(centre.y, kHalfHeight)};
}

POINT beside(const POINT& centre, std::int32_t step) { return {moved(centre.x, step), centre.y}; }

CString inCapitals(CString name) {
  name.MakeUpper();
  return name;
}

class Cells {
 public:
  explicit Cells(CZhlkCircuitRecord& circuit) : circuit_(circuit) {}

  bool find(const POINT& at, ZhlkElement& element) const {
    return circuit_.HitBlock(at, element) == 1;
  }
  void write(ZhlkElement& element) { circuit_.WriteElement(element); }

  // The cell becomes a single one of that name around its middle, and so do both its neighbours,
  // which are appended where there are none. The wide rectangle is what changes in the view.
  RECT split(ZhlkElement& cell, const CString& name) {
    const RECT wide = cell.symbolRect;
    const POINT centre = centreOf(wide);
    makeSingle(cell, centre, name);
    writeNeighbour(beside(centre, -kStep), name);
    writeNeighbour(beside(centre, kStep), name);
    return wide;
  }

  // One wide symbol over the cell and two more of its row. No rectangle: the bottom row stays.
  std::optional<RECT> widen(const ZhlkElement& cell, const CString& name) {
    if (std::abs(std::int64_t{cell.symbolRect.top} - kBottomRowTop) <= kTopTolerance) {
      return std::nullopt;
    }
    const POINT middle = middleOfThree(centreOf(cell.symbolRect));
    cover(beside(middle, -kStep));
    cover(beside(middle, kStep));
    ZhlkElement wide;
    find(middle, wide);
    wide.symbolRect = around(middle, kWideHalfWidth);
    wide.blockName = name;
    write(wide);
    return wide.symbolRect;
  }

 private:
  void makeSingle(ZhlkElement& cell, const POINT& centre, const CString& name) {
    cell.blockName = name;
    cell.symbolRect = around(centre, kCellHalfWidth);
    cell.specification.Empty();
    write(cell);
  }

  void writeNeighbour(const POINT& centre, const CString& name) {
    ZhlkElement neighbour;
    if (!find(centre, neighbour)) {
      neighbour.kind = kBlockElement;
      neighbour.index = static_cast<std::uint16_t>(circuit_.GetBlockCount());
    }
    makeSingle(neighbour, centre, name);
  }

  // The clicked cell is the left, the middle or the right one of three, by what lies to its right.
  POINT middleOfThree(const POINT& centre) const {
    ZhlkElement ignored;
    const POINT right = beside(centre, kStep);
    if (!find(right, ignored)) return beside(centre, -kStep);
    return find(beside(right, kStep), ignored) ? right : centre;
  }

  // Where no cell lies, the search leaves the last block, and that one is covered: it is meant.
  void cover(const POINT& at) {
    ZhlkElement neighbour;
    find(at, neighbour);
    neighbour.blockName = kCoveredCell;
    write(neighbour);
  }

  CZhlkCircuitRecord& circuit_;
};

RECT replaceSymbol(Cells& cells, ZhlkElement& cell, const CString& name) {
  cell.blockName = name;
  cells.write(cell);
  return cell.symbolRect;
}

}  // namespace

std::optional<RECT> placeSymbol(CZhlkCircuitRecord& circuit, const POINT& point,
                                const CString& picked) {
  Cells cells(circuit);
  ZhlkElement cell;
  if (!cells.find(point, cell)) return std::nullopt;
  const CString name =
      inCapitals(picked.CompareNoCase(kEmptyPick) == 0 ? CString(kEmptyCell) : picked);
  const bool wasWide = isWideSymbol(cell.blockName);
  if (isWideSymbol(name)) {
    if (wasWide) return replaceSymbol(cells, cell, name);
    return cells.widen(cell, name);
  }
  if (wasWide) return cells.split(cell, name);
  if (name == kEmptyCell) cell.specification.Empty();
  return replaceSymbol(cells, cell, name);
}

std::optional<RECT> clearCell(CZhlkCircuitRecord& circuit, const POINT& point) {
  Cells cells(circuit);
  ZhlkElement cell;
  if (!cells.find(point, cell)) return std::nullopt;
  if (isWideSymbol(cell.blockName)) return cells.split(cell, kEmptyCell);
  cell.specification.Empty();
  return replaceSymbol(cells, cell, kEmptyCell);
}
