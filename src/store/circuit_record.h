// CZhlkCircuitRecord: one circuit at work, between the library and an edit or a capture. It holds
// the circuit's row, the same as a tree that the editor changes, the slide captured last, and where
// the drawing's origin lies in the edit view. Tree keys, numbers as texts; <n> counts from 0:
//
//   块, 线, 文字                      numbers of blocks, lines, texts
//   块\<n>                           "1"
//   块\<n>\块名, \型号规格, \角度       name, model specification, degrees as in the row
//   块\<n>\插入点\x, \y               %f, drawing units
//   块\<n>\Sld                       bytes of the symbol's slide
//   块\<n>\块名\left ... \bottom      %d, pixels; so too below \型号规格
//   线\<n>                           "3"
//   线\<n>\起点\x ... \终点\y          %f, drawing units
//   线\<n>\屏幕起点\x ... \屏幕终点\y    %d, pixels
//   文字\<n>                         "2"
//   文字\<n>\文字, \颜色, \字高, \角度   text, %d colour index, %f height, %f degrees
//   文字\<n>\插入点\x, \y             %f, drawing units
//   文字\<n>\点1\x ... \点4\y         %d, pixels: the corners of the text's box
//
// The tree is never written to a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/framework_arrays.h"
#include "platform/framework_shapes.h"
#include "platform/framework_text.h"
#include "platform/quill_data.h"

struct CircuitRow;
struct LibraryRowReading;
struct RowPoint;

// Names of symbols with a meaning of their own; compared exactly.
constexpr const wchar_t* kEmptyCell = L"F002";    // a free position; stands for unknown symbols too
constexpr const wchar_t* kCoveredCell = L"NULL";  // beneath a three-wide neighbour; in no row

// What FindSymbolFile looks for.
constexpr int kSymbolSlides = 0;   // the slide library of the symbol's folder
constexpr int kSymbolDrawing = 1;  // the symbol's own drawing; so is every other number

// The kinds of elements; the marks in the tree are the same numbers.
constexpr std::uint16_t kBlockElement = 1;
constexpr std::uint16_t kTextElement = 2;
constexpr std::uint16_t kLineElement = 3;

// A block, a text or a line of the tree, in pixels. Only the fields of its kind count.
struct ZhlkElement {
  std::uint16_t kind = 0;
  std::uint16_t index = 0;
  CString blockName;
  RECT symbolRect{};
  CByteArray slide;
  CString specification;
  RECT specificationRect{};
  POINT lineStart{};
  POINT lineEnd{};
  CString text;
  std::int32_t colour = 0;
  double textHeight = 0;
  POINT corners[4]{};
  double textAngle = 0;  // degrees
};

class CZhlkCircuitRecord {
 public:
  // Reads the directory file of the symbol library; without one no symbol is found.
  CZhlkCircuitRecord();
  CZhlkCircuitRecord(const CZhlkCircuitRecord&) = delete;
  CZhlkCircuitRecord& operator=(const CZhlkCircuitRecord&) = delete;

  // 0 when the tree doesn't say.
  std::int16_t GetBlockCount() const;
  std::int16_t GetLineCount() const;
  std::int16_t GetTextCount() const;
  // 1 with the element's fields, defaults for what the tree doesn't hold; 0 for an index outside
  // the count. An empty text gives 0 too, with kind and index set alone. A kind that there isn't
  // reads nothing and gives 1.
  int ReadElement(std::uint16_t index, ZhlkElement& element, std::uint16_t kind) const;
  // The first block by index whose rectangle holds the pixel, covered cells included: 1 with the
  // element, or 0 with the last block in it, when there is one.
  int HitBlock(const POINT& point, ZhlkElement& element) const;
  // Writes a block or a text back. A block one behind the last is appended, at the place that its
  // rectangle's cell has in the drawing. 0 for an index beyond. An unknown symbol becomes the
  // empty cell in the element, while the tree keeps its name. Other kinds: 1 and nothing written.
  int WriteElement(ZhlkElement& element);
  // The lattice's column and row of a rectangle in the edit view, in drawing units.
  void ScreenToCell(const RECT& rectangle, double& x, double& y) const;
  // The tree as a data row. Covered cells are left out.
  void BuildRow(CString& row) const;

  // Stores both and expands the row.
  void Load(const CString& circuitRow, const CString& circuitName);
  // The row as elements in the tree, which must be empty; the scroll size and origin that show
  // them. A record without a number takes the row's. A row that can't be read gives a message and
  // leaves the tree empty.
  void ExpandRow();

  // The tree as the record's row and slide. A row that can't be read or a drawing that can't be
  // made gives a message and leaves the slide as it was; the row has changed by then. Symbols that
  // aren't found are drawn as empty cells. Host services are called: lock the document.
  void CaptureTree();
  // The slide of that row, with the number that the row has, under that name. The record's own row,
  // name, number and tree stay.
  void CaptureRow(const CString& circuitRow, const CString& circuitName);

  // 1 with the path for that mode, or 0 without touching it. Names compare whole, without case.
  int FindSymbolFile(const CString& symbol, CString& path, int mode) const;
  // The symbol's slide; empty when there is none. An unknown symbol's name becomes that of the
  // empty cell, whose slide is given instead.
  void LoadSymbolSlide(CString& symbol, CByteArray& slide) const;
  // From drawing units, y upwards, to the pixels of the edit view, y downwards.
  void DrawingToScreen(double x, double y, POINT& pixel) const;

  SIZE scrollSize{};                // pixels of the whole circuit in the edit view
  POINT origin{};                   // the pixel of drawing point (0, 0)
  RECT frame{};                     // the edit view's frame; its right edge counts
  CString name;                     // the circuit's: "主回路&05"
  std::vector<std::uint8_t> slide;  // captured last; empty before
  CString number;                   // "05"
  CString row;
  CQuillDpData tree;

 private:
  int writeBlock(ZhlkElement& element);
  int writeText(const ZhlkElement& element);
  RowPoint textInsertion(int index) const;
  void layOut(const CircuitRow& circuit);
  void expandBlocks(const CircuitRow& circuit);
  void expandTexts(const CircuitRow& circuit);
  void expandLines(const CircuitRow& circuit);
  void capture(const LibraryRowReading& reading, const CString& label, const CString& circuitName);

  std::optional<std::string> symbolIndex_;  // the directory file
  std::wstring symbolFolder_;               // with its final backslash
};
