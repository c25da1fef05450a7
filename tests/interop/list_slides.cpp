// Lists what slides draw, for comparing with another reader: list_slides FOLDER FILE... puts every
// slide of the given slides and libraries, and a hundred of our own, into FOLDER as NAME.sld, and
// beside each the lines and polygons that we read in it as NAME.txt.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/slide_store/slide_library.h"
#include "embedded/slide_store/slide_writer.h"

namespace {

using slide_store::SlidePoint;

std::string shown(SlidePoint p) {
  return "(" + std::to_string(p.x) + ", " + std::to_string(p.y) + ")";
}

class Lister : public slide_store::SlideVisitor {
 public:
  explicit Lister(std::ostream& out) : out_(out) {}
  void line(SlidePoint from, SlidePoint to, std::uint8_t colour) override {
    out_ << "vector " << int{colour} << ' ' << shown(from) << ' ' << shown(to) << '\n';
  }
  void fill(std::span<const SlidePoint> corners, std::uint8_t colour) override {
    out_ << "polygon " << int{colour};
    for (const SlidePoint p : corners) out_ << ' ' << shown(p);
    out_ << '\n';
  }

 private:
  std::ostream& out_;
};

bool put(const std::filesystem::path& path, std::string_view slide) {
  const auto file = [&](const char* ending) { return std::filesystem::path(path) += ending; };
  std::ofstream(file(".sld"), std::ios::binary) << slide;
  std::ofstream listing(file(".txt"));
  const auto header = slide_store::readSlideHeader(slide);
  if (!header.ok()) return false;
  Lister lister(listing);
  return readSlideRecords(slide, *header, lister).ok();
}

std::string randomSlide(std::mt19937& random) {
  const auto upTo = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  slide_store::SlideWriter writer(999, 499);
  SlidePoint last;
  // Records near the last one take the short forms.
  const auto next = [&] {
    const bool near = upTo(3) != 0;
    last = near ? SlidePoint{last.x + upTo(200) - 100, last.y + upTo(200) - 100}
                : SlidePoint{upTo(1100) - 50, upTo(600) - 50};
    return last;
  };
  for (int i = 0; i < 100; ++i) {
    const auto colour = static_cast<std::uint8_t>(1 + upTo(4));
    if (upTo(4) == 0) {
      std::vector<SlidePoint> corners(static_cast<std::size_t>(3 + upTo(9)));
      for (SlidePoint& p : corners) p = next();
      writer.fill(corners, colour);
    } else {
      const SlidePoint from = last;
      writer.line(upTo(1) ? from : next(), next(), colour);
    }
  }
  return writer.finish();
}

bool putFile(const std::filesystem::path& folder, const std::filesystem::path& file) {
  const auto bytes = base::readFile(file);
  if (!bytes.ok()) return false;
  if (file.extension() != ".slb") return put(folder / file.stem(), *bytes);
  slide_store::SlideLibrary library;
  bool good = library.parse(*bytes).ok() && library.size() > 0;
  for (const std::string& name : library.names()) {
    const std::string utf8 = base::utf8FromWide(base::wideFromAnsi(name));
    good = put(folder / base::pathFromUtf8(utf8), *library.find(name)) && good;
  }
  return good;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return 2;
  const std::filesystem::path folder = arguments[1];
  bool good = true;
  for (int i = 2; i < count; ++i) {
    if (putFile(folder, arguments[i])) continue;
    std::fprintf(stderr, "%s can't be read\n", arguments[i]);
    good = false;
  }
  std::mt19937 random(1);
  for (int i = 0; i < 100; ++i) {
    good = put(folder / ("own" + std::to_string(i)), randomSlide(random)) && good;
  }
  return good ? 0 : 1;
}
