// Reads compiled shape fonts. Numbers are low byte first; `record` is a name, 00, and the bytes
// that draw the shape. Shape 0 is the font record.
//
//   all kinds   signature     text, then 0D 0A 1A; the kind is told by a word of it
//   shapes      u16 u16 u16   lowest number, highest number, count n
//               n times       u16 number, u16 record length
//               n records     in the order of the index
//               "EOF"
//   unifont     u32           number of records, the font record included
//               u16, record   length, font record
//               each          u16 code, u16 record length, record
//   big font    u16 u16 u16   size of an index entry (not looked at), entries n, lead byte ranges r
//               r times       u16 first, u16 last
//               n times       u16 code, u16 record length (0: a free entry), u32 offset in the file
//               records
//
//   font record of shapes and of a big font   above, below, modes, 0
//   of an extended big font                   height, 0, modes, width, 0
//   of a unifont                              above, below, modes, encoding, embedding, 0
#include "embedded/drafting/fonts/shape_font.h"

#include <algorithm>

#include "embedded/base/text.h"

namespace drafting {
namespace {

constexpr char kSignatureEnd = 0x1A;
constexpr std::size_t kLongestSignature = 40;
constexpr std::string_view kSignatureStart = "autocad";
constexpr std::size_t kMostProblems = 20;
constexpr std::size_t kPlainRecord = 4;  // bytes of a plain big font's font record

}  // namespace

class FontReader {
 public:
  FontReader(ShapeFont& font, std::string_view fileName)
      : font_(font), bytes_(font.bytes_), fileName_(fileName) {}

  base::Status run() {
    if (!takeSignature()) return damage("is no compiled shape font");
    base::Status status = font_.kind_ == FontKind::Shapes    ? readShapes()
                          : font_.kind_ == FontKind::Unifont ? readUnifont()
                                                             : readBigFont();
    if (!status.ok()) return status;
    putInOrder();
    takeFontRecord();
    if (untold_ > 0) note(std::to_string(untold_) + " more shapes are left out");
    return {};
  }

 private:
  // --- bytes

  bool have(std::size_t count) const { return bytes_.size() - at_ >= count; }

  std::uint32_t number(std::size_t at, int size) const {
    std::uint32_t value = 0;
    for (int i = size; i-- > 0;) {
      value = value << 8 | static_cast<std::uint8_t>(bytes_[at + static_cast<std::size_t>(i)]);
    }
    return value;
  }

  std::uint16_t takeWord() {
    const std::uint32_t value = number(at_, 2);
    at_ += 2;
    return static_cast<std::uint16_t>(value);
  }

  std::uint32_t takeLong() {
    const std::uint32_t value = number(at_, 4);
    at_ += 4;
    return value;
  }

  // --- messages

  std::string sentence(std::size_t at, std::string_view reason) const {
    return fileName_ + ": byte " + std::to_string(at) + ": " + std::string(reason);
  }

  base::Status damage(std::string_view reason) const {
    return base::Status::failure(sentence(at_, reason));
  }

  void note(std::string_view reason) {
    font_.problems_.push_back(fileName_ + ": " + std::string(reason));
  }

  void drop(std::size_t at, unsigned code, std::string_view reason) {
    if (font_.problems_.size() >= kMostProblems) {
      ++untold_;
    } else {
      font_.problems_.push_back(sentence(
          at, "shape " + std::to_string(code) + " " + std::string(reason) + "; it is left out"));
    }
  }

  // --- the layouts

  bool takeSignature() {
    const std::size_t end = bytes_.substr(0, kLongestSignature).find(kSignatureEnd);
    if (end == std::string_view::npos) return false;
    const std::string text = base::lowerCase(bytes_.substr(0, end));
    if (!text.starts_with(kSignatureStart)) return false;
    const auto has = [&](std::string_view word) { return text.find(word) != std::string::npos; };
    if (has("bigfont"))
      font_.kind_ = FontKind::BigFont;
    else if (has("unifont"))
      font_.kind_ = FontKind::Unifont;
    else if (!has("shapes"))
      return false;
    at_ = end + 1;
    return true;
  }

  base::Status readShapes() {
    if (!have(6)) return damage("ends within the counts");
    at_ += 4;
    const std::size_t count = takeWord();
    if (!have(count * 4)) return damage("ends within the index");
    std::size_t record = at_ + count * 4;
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint16_t code = takeWord(), length = takeWord();
      takeRecord(code, record, length);
      record += length;
    }
    return {};
  }

  base::Status readUnifont() {
    if (!have(6)) return damage("ends within the counts");
    const std::uint32_t count = takeLong();
    const std::size_t length = takeWord();
    if (!have(length)) return damage("ends within the font record");
    takeRecord(0, at_, length);
    at_ += length;
    for (std::uint32_t i = 1; i < count; ++i) {
      if (!have(4)) {
        note("ends before the last shapes");
        break;
      }
      const std::size_t start = at_;
      const std::uint16_t code = takeWord(), size = takeWord();
      if (code == 0)
        drop(start, code, "comes a second time");
      else
        takeRecord(code, at_, size);
      at_ += std::min<std::size_t>(size, bytes_.size() - at_);
    }
    return {};
  }

  base::Status readBigFont() {
    if (!have(6)) return damage("ends within the counts");
    at_ += 2;
    const std::size_t count = takeWord(), ranges = takeWord();
    if (!have(ranges * 4 + count * 8)) return damage("ends within the index");
    for (std::size_t i = 0; i < ranges; ++i) {
      const std::uint16_t first = takeWord(), last = takeWord();
      font_.leadRanges_.push_back({first, last});
    }
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint16_t code = takeWord(), length = takeWord();
      const std::uint32_t offset = takeLong();
      if (length > 0) takeRecord(code, offset, length);
    }
    return {};
  }

  void takeRecord(std::uint16_t code, std::size_t at, std::size_t length) {
    if (length == 0) return drop(at, code, "has no bytes");
    if (at > bytes_.size() || bytes_.size() - at < length) {
      return drop(at, code, "lies outside of the file");
    }
    const std::string_view record = bytes_.substr(at, length);
    const std::size_t nameEnd = record.find('\0');
    if (nameEnd == std::string_view::npos) return drop(at, code, "has a name without an end");
    if (nameEnd + 1 == length) return drop(at, code, "has nothing behind its name");
    font_.shapes_.push_back({code, record.substr(0, nameEnd), record.substr(nameEnd + 1)});
  }

  // Of several shapes with one number the first of the file counts.
  void putInOrder() {
    auto& shapes = font_.shapes_;
    const auto below = [](const auto& a, const auto& b) { return a.code < b.code; };
    const auto same = [](const auto& a, const auto& b) { return a.code == b.code; };
    if (!std::is_sorted(shapes.begin(), shapes.end(), below)) {
      std::stable_sort(shapes.begin(), shapes.end(), below);
    }
    const auto end = std::unique(shapes.begin(), shapes.end(), same);
    if (end != shapes.end()) {
      note(std::to_string(shapes.end() - end) + " shapes have a number that is taken already");
    }
    shapes.erase(end, shapes.end());
  }

  void takeFontRecord() {
    auto& shapes = font_.shapes_;
    if (shapes.empty() || shapes.front().code != 0) return;
    const ShapeFont::Shape record = shapes.front();
    shapes.erase(shapes.begin());
    font_.name_ = record.name;
    if (record.bytes.size() < kPlainRecord) return note("the font record is too short");
    const auto byte = [&](std::size_t i) {
      return i < record.bytes.size() ? static_cast<std::uint8_t>(record.bytes[i]) : std::uint8_t{0};
    };
    FontMetrics& metrics = font_.metrics_;
    metrics.above = byte(0);
    metrics.below = byte(1);
    metrics.modes = byte(2);
    if (font_.kind_ == FontKind::Unifont) {
      metrics.encoding = byte(3);
      metrics.embedding = byte(4);
    } else if (font_.kind_ == FontKind::BigFont && record.bytes.size() > kPlainRecord) {
      metrics.extended = true;
      metrics.width = byte(3);
    }
    if (metrics.above == 0) note("the font record has a height of 0");
  }

  ShapeFont& font_;
  std::string_view bytes_;
  std::string fileName_;
  std::size_t at_ = 0;
  std::size_t untold_ = 0;
};

base::Result<std::shared_ptr<const ShapeFont>> ShapeFont::read(std::string bytes,
                                                               std::string_view fileName) {
  const std::shared_ptr<ShapeFont> font(new ShapeFont);
  font->bytes_ = std::move(bytes);
  const base::Status status = FontReader(*font, fileName).run();
  if (!status.ok()) return status;
  return std::shared_ptr<const ShapeFont>(font);
}

bool ShapeFont::isLeadByte(std::uint8_t byte) const {
  return std::any_of(leadRanges_.begin(), leadRanges_.end(), [byte](const LeadRange& range) {
    return byte >= range.first && byte <= range.last;
  });
}

std::string_view ShapeFont::find(std::uint16_t code) const {
  const auto found = std::lower_bound(shapes_.begin(), shapes_.end(), code,
                                      [](const Shape& s, std::uint16_t c) { return s.code < c; });
  return found != shapes_.end() && found->code == code ? found->bytes : std::string_view{};
}

}  // namespace drafting
