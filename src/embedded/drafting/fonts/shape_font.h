// ShapeFont: a compiled shape font in memory: which shapes it has and the bytes that draw them.
// What the bytes mean is shape_drawing.h's business.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"

namespace drafting {

enum class FontKind : std::uint8_t {
  Shapes,   // a shape's number is a byte of the text's code page
  Unifont,  // a Unicode code
  BigFont,  // two bytes of the text's code page, the first one times 256
};

// The font record, in the font's own units.
struct FontMetrics {
  std::uint8_t above = 0;  // from the baseline to the top of capitals; extended: character height
  std::uint8_t below = 0;  // that small letters descend
  std::uint8_t modes = 0;  // 2: usable vertically too
  std::uint8_t encoding = 0, embedding = 0;  // unifonts
  std::uint8_t width = 0;                    // of an extended big font's characters
  bool extended = false;
  friend bool operator==(const FontMetrics&, const FontMetrics&) = default;
};

// Lead bytes of double-byte characters, both ends included.
struct LeadRange {
  std::uint16_t first = 0, last = 0;
  friend bool operator==(const LeadRange&, const LeadRange&) = default;
};

class ShapeFont {
 public:
  struct Shape {
    std::uint16_t code = 0;
    std::string_view name;   // mostly empty
    std::string_view bytes;  // at least one
  };

  // Fails, naming the file, the offset and the reason, on what is no shape font or ends before its
  // first shape. A damaged shape is left out by itself and told in problems().
  static base::Result<std::shared_ptr<const ShapeFont>> read(std::string bytes,
                                                             std::string_view fileName);

  ShapeFont(const ShapeFont&) = delete;
  ShapeFont& operator=(const ShapeFont&) = delete;

  FontKind kind() const { return kind_; }
  const std::string& name() const { return name_; }
  // Without a font record the file is a collection of named shapes, and no text can be written.
  bool isTextFont() const { return metrics_.above > 0; }
  bool isVertical() const { return metrics_.modes == kBothWays; }
  const FontMetrics& metrics() const { return metrics_; }
  std::span<const LeadRange> leadRanges() const { return leadRanges_; }
  bool isLeadByte(std::uint8_t byte) const;

  // In ascending order, without the font record. Good as long as the font.
  std::span<const Shape> shapes() const { return shapes_; }
  // The bytes of a shape; empty if the font doesn't have it.
  std::string_view find(std::uint16_t code) const;

  // What was left out on reading, a sentence each; of many the first ones and their number.
  const std::vector<std::string>& problems() const { return problems_; }

 private:
  static constexpr std::uint8_t kBothWays = 2;
  friend class FontReader;
  ShapeFont() = default;

  std::string bytes_;
  FontKind kind_ = FontKind::Shapes;
  std::string name_;
  FontMetrics metrics_;
  std::vector<LeadRange> leadRanges_;
  std::vector<Shape> shapes_;
  std::vector<std::string> problems_;
};

}  // namespace drafting
