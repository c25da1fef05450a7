// Writes what shape_font.cpp reads; the layouts are told there. Shapes stand in ascending order,
// the font record first, big fonts have no free entries.
#include "embedded/drafting/fonts/font_writer.h"

#include <algorithm>
#include <cstdlib>

namespace drafting {
namespace {

constexpr int kLongestMove = 127;
constexpr std::size_t kMostShapeBytes = 2000;
constexpr std::size_t kMostBytes = 0xFFFF;
constexpr std::string_view kShapesSignature = "AutoCAD-86 shapes 1.0\r\n\x1A";
constexpr std::string_view kUnifontSignature = "AutoCAD-86 unifont 1.0\r\n\x1A";
constexpr std::string_view kBigFontSignature = "AutoCAD-86 bigfont 1.0\r\n\x1A";
constexpr std::string_view kEndMark = "EOF";

void putByte(std::string& out, int value) { out += static_cast<char>(value); }

void putNumber(std::string& out, std::size_t value, int size) {
  for (int i = 0; i < size; ++i) putByte(out, static_cast<int>(value >> (8 * i) & 0xFF));
}

// The way from one point to another, in moves that fit into signed bytes.
std::vector<GridPoint> stepsBetween(GridPoint from, GridPoint to) {
  const int dx = to.x - from.x, dy = to.y - from.y;
  const int longest = std::max(std::abs(dx), std::abs(dy));
  const int count = (longest + kLongestMove - 1) / kLongestMove;
  std::vector<GridPoint> steps;
  GridPoint done;
  for (int i = 1; i <= count; ++i) {
    const GridPoint next{dx * i / count, dy * i / count};
    steps.push_back({next.x - done.x, next.y - done.y});
    done = next;
  }
  return steps;
}

void putMoves(std::string& out, const std::vector<GridPoint>& steps) {
  if (steps.empty()) return;
  putByte(out, steps.size() == 1 ? 8 : 9);
  for (const GridPoint step : steps) {
    putByte(out, step.x);
    putByte(out, step.y);
  }
  if (steps.size() > 1) out.append(2, '\0');
}

std::vector<GridPoint> stepsAlong(const GridStroke& stroke) {
  std::vector<GridPoint> all;
  for (std::size_t i = 1; i < stroke.size(); ++i) {
    const auto steps = stepsBetween(stroke[i - 1], stroke[i]);
    all.insert(all.end(), steps.begin(), steps.end());
  }
  return all;
}

std::string fontRecordBytes(const FontParts& parts) {
  const FontMetrics& m = parts.metrics;
  std::string bytes;
  putByte(bytes, m.above);
  putByte(bytes, m.below);
  putByte(bytes, m.modes);
  if (parts.kind == FontKind::Unifont) {
    putByte(bytes, m.encoding);
    putByte(bytes, m.embedding);
  } else if (m.extended) {
    putByte(bytes, m.width);
  }
  putByte(bytes, 0);
  return bytes;
}

struct Record {
  std::uint16_t code = 0;
  std::string bytes;  // name, 00, what draws it
};

class FontWriter {
 public:
  explicit FontWriter(const FontParts& parts) : parts_(parts) {}

  base::Result<std::string> run() {
    const base::Status status = makeRecords();
    if (!status.ok()) return status;
    switch (parts_.kind) {
      case FontKind::Shapes: writeShapes(); break;
      case FontKind::Unifont: writeUnifont(); break;
      case FontKind::BigFont: writeBigFont(); break;
    }
    return std::move(out_);
  }

 private:
  base::Status makeRecords() {
    if (parts_.metrics.above > 0) {
      records_.push_back({0, parts_.name + '\0' + fontRecordBytes(parts_)});
    } else if (parts_.kind != FontKind::Shapes) {
      return base::Status::failure("the font has no height");
    }
    for (const auto& [code, shape] : parts_.shapes) {
      const auto told = "shape " + std::to_string(code);
      if (code == 0) return base::Status::failure("shape 0 is the font record");
      if (shape.bytes.empty()) return base::Status::failure(told + " has no bytes");
      if (shape.bytes.size() > kMostShapeBytes) {
        return base::Status::failure(told + " has more than 2000 bytes");
      }
      records_.push_back({code, shape.name + '\0' + shape.bytes});
    }
    const auto tooLong = [](const Record& record) { return record.bytes.size() > kMostBytes; };
    if (std::any_of(records_.begin(), records_.end(), tooLong)) {
      return base::Status::failure("a name is too long");
    }
    return records_.size() > kMostBytes ? base::Status::failure("the font has too many shapes")
                                        : base::Status();
  }

  void writeShapes() {
    out_ = kShapesSignature;
    putNumber(out_, records_.empty() ? 0 : records_.front().code, 2);
    putNumber(out_, records_.empty() ? 0 : records_.back().code, 2);
    putNumber(out_, records_.size(), 2);
    for (const Record& record : records_) {
      putNumber(out_, record.code, 2);
      putNumber(out_, record.bytes.size(), 2);
    }
    for (const Record& record : records_) out_ += record.bytes;
    out_ += kEndMark;
  }

  void writeUnifont() {
    out_ = kUnifontSignature;
    putNumber(out_, records_.size(), 4);
    for (const Record& record : records_) {
      if (record.code != 0) putNumber(out_, record.code, 2);
      putNumber(out_, record.bytes.size(), 2);
      out_ += record.bytes;
    }
  }

  void writeBigFont() {
    constexpr std::size_t kEntrySize = 8;
    out_ = kBigFontSignature;
    putNumber(out_, kEntrySize, 2);
    putNumber(out_, records_.size(), 2);
    putNumber(out_, parts_.leadRanges.size(), 2);
    for (const LeadRange& range : parts_.leadRanges) {
      putNumber(out_, range.first, 2);
      putNumber(out_, range.last, 2);
    }
    std::size_t offset = out_.size() + records_.size() * kEntrySize;
    for (const Record& record : records_) {
      putNumber(out_, record.code, 2);
      putNumber(out_, record.bytes.size(), 2);
      putNumber(out_, offset, 4);
      offset += record.bytes.size();
    }
    for (const Record& record : records_) out_ += record.bytes;
  }

  const FontParts& parts_;
  std::vector<Record> records_;
  std::string out_;
};

}  // namespace

std::string compileShape(const std::vector<GridStroke>& strokes, GridPoint end) {
  constexpr int kPenDown = 1, kPenUp = 2;
  std::string out;
  putByte(out, kPenUp);
  GridPoint at;
  for (const GridStroke& stroke : strokes) {
    if (stroke.size() < 2) continue;
    putMoves(out, stepsBetween(at, stroke.front()));
    putByte(out, kPenDown);
    putMoves(out, stepsAlong(stroke));
    putByte(out, kPenUp);
    at = stroke.back();
  }
  putMoves(out, stepsBetween(at, end));
  putByte(out, 0);
  return out;
}

base::Result<std::string> writeFont(const FontParts& parts) { return FontWriter(parts).run(); }

FontParts partsOf(const ShapeFont& font) {
  FontParts parts{font.kind(), font.name(), font.metrics(), {}, {}};
  parts.leadRanges.assign(font.leadRanges().begin(), font.leadRanges().end());
  for (const ShapeFont::Shape& shape : font.shapes()) {
    parts.shapes[shape.code] = {std::string(shape.name), std::string(shape.bytes)};
  }
  return parts;
}

}  // namespace drafting
