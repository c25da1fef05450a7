// From a circuit's row, or its tree, to its slide.
#include "engine/row_reader.h"
#include "module/information.h"
#include "platform/framework_messages.h"
#include "platform/framework_wait_cursor.h"
#include "platform/slide_capture.h"
#include "store/circuit_drawing.h"
#include "store/circuit_record.h"

namespace {

// The picture is as upright as the library's cells, 3 to 8.
constexpr int kSlideWidth = 240;  // dots
constexpr int kSlideHeight = 640;
constexpr double kFilledPart = 0.95;

constexpr double kNumberRight = 4.0;  // of the circuit's upper left corner, drawing units
constexpr double kNumberBelow = 10.0;

// Shown anew at every end, since a message box takes it away.
class WaitCursorShown {
 public:
  WaitCursorShown() { BeginWaitCursor(); }
  ~WaitCursorShown() { RestoreWaitCursor(); }
  WaitCursorShown(const WaitCursorShown&) = delete;
  WaitCursorShown& operator=(const WaitCursorShown&) = delete;
};

CString slidePath(const CString& circuitName) {
  std::wstring folder = userFolder();
  if (folder.empty() || folder.back() != L'\\') folder += L'\\';
  return folder + circuitName.wide() + L".sld";
}

}  // namespace

void CZhlkCircuitRecord::CaptureTree() {
  const WaitCursorShown wait;
  BuildRow(row);
  capture(readLibraryRow(row.wide()), number, name);
}

void CZhlkCircuitRecord::CaptureRow(const CString& circuitRow, const CString& circuitName) {
  const WaitCursorShown wait;
  const LibraryRowReading reading = readLibraryRow(circuitRow.wide());
  capture(reading, reading.number.value_or(L""), circuitName);
}

void CZhlkCircuitRecord::capture(const LibraryRowReading& reading, const CString& label,
                                 const CString& circuitName) {
  if (!reading.ok()) {
    showMessageBox({.text = reading.message, .caption = kCircuitCaption});
    return;
  }
  CircuitDrawing drawing(*this);
  if (!drawing.addBlocks(reading.row) || !drawing.addLines(reading.row) ||
      !drawing.addTexts(reading.row) || !drawing.addFrame()) {
    return;
  }
  CGetSld picture(slidePath(circuitName), drawing.database());
  picture.SetChineseShxFileName(systemFolder() + L"\\datcom\\chinese.wzk");
  picture.SetEnglishShxFileName(systemFolder() + L"\\datcom\\english.wzk");
  picture.width = kSlideWidth;
  picture.height = kSlideHeight;
  picture.part = kFilledPart;
  AcDbExtents extents;
  picture.GetDataBaseExtents(extents);
  const AcGePoint3d place{extents.minPoint().x + kNumberRight, extents.maxPoint().y - kNumberBelow,
                          0};
  if (!drawing.addNumber(place, label)) return;
  picture.GetSldData();
  slide.assign(picture.data, picture.data + picture.size);
}
