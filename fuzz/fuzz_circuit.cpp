// Any row as a circuit: expanded, folded back and captured. No crash; a slide that is made can be
// read whole, and a row folded once stays as it is.
#include <cstdlib>

#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/documents/session.h"
#include "embedded/slide_store/slide.h"
#include "platform/framework_messages.h"
#include "samples/generator/drawings.h"
#include "store/circuit_record.h"
#include "support/install.h"

namespace {

// A symbol library of a line and a text, and a frame.
class Library {
 public:
  Library() {
    std::filesystem::create_directories(install_.symbols() / "dqbl0001");
    std::filesystem::create_directories(install_.root() / "SYSTEM");
    save({{'L', {0, 0, 0, -8}, ""}}, install_.symbols() / "dqbl0001" / "A.dwg");
    save({{'T', {0, 0, 2}, "M"}}, install_.symbols() / "dqbl0001" / "B.dwg");
    save({{'R', {-26.25, 6, 26.25, -134}, ""}}, install_.root() / "SYSTEM" / "t-Arr.dwg");
    test::writeBytes(install_.symbols() / "dwgdir.dab", "A       0001B       0001");
    setMessageBoxHandler([](const MessageBoxCall&) { return kMessageAnswerOk; });
  }

 private:
  static void save(const samples::Figure& figure, const std::filesystem::path& path) {
    static_cast<void>(
        drafting::saveDrawingFile(*samples::makeFigureDrawing(figure), base::utf8FromPath(path)));
  }

  test::Install install_;
  drafting::Session session_;
};

struct Ignore : slide_store::SlideVisitor {
  void line(slide_store::SlidePoint, slide_store::SlidePoint, std::uint8_t) override {}
  void fill(std::span<const slide_store::SlidePoint>, std::uint8_t) override {}
};

void require(bool condition) {
  if (!condition) std::abort();
}

void requireWholeSlide(const std::vector<std::uint8_t>& bytes) {
  if (bytes.empty()) return;
  const std::string slide(bytes.begin(), bytes.end());
  const auto header = slide_store::readSlideHeader(slide);
  require(header.ok() && header->highX == 239 && header->highY == 639);
  Ignore ignore;
  const auto size = readSlideRecords(slide, *header, ignore);
  require(size.ok() && *size == slide.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMost = 4096;
  static Library library;
  std::wstring text =
      base::wideFromUtf8({reinterpret_cast<const char*>(data), std::min(size, kMost)});
  std::erase(text, L'\0');
  CZhlkCircuitRecord record;
  record.Load(text, L"主回路&05");
  CString once;
  record.BuildRow(once);
  record.CaptureRow(text, L"主回路&05");
  requireWholeSlide(record.slide);
  record.slide.clear();
  record.CaptureTree();
  require(record.row == once);
  requireWholeSlide(record.slide);
  return 0;
}
