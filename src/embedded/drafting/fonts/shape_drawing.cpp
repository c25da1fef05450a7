// The interpreter of shapes. A byte from 10 hex on is a vector, length in its high half, direction
// in its low one; below are commands with operands:
//
//   code  operands                              meaning
//   0                                           end
//   1, 2                                        pen down, pen up
//   3, 4  n                                     divide, multiply the scale
//   5, 6                                        push, pop the position
//   7     number (1 byte; unifont 2)            subshape
//         big font: 00, number (2), x, y, w, h  primitive fitted into a box (plain font: one size)
//   8     dx, dy                                move
//   9     pairs up to 0, 0                      moves
//   10    radius, octants                       arc of whole octants
//   11    start, end, radius (2), octants       arc with offsets of 1/256 octant at its ends
//   12    dx, dy, bulge                         arc over a chord; 127 is half a circle
//   13    triples up to a pair 0, 0             arcs over chords
//   14                                          the next command is for vertical text only
//
// The byte of octants: bit 7 clockwise, bits 4 to 6 the first octant, bits 0 to 2 their number, of
// which 0 means eight.
#include "embedded/drafting/fonts/shape_drawing.h"

#include <array>
#include <cmath>

namespace drafting {
namespace {

enum Command : std::uint8_t {
  kEnd,
  kPenDown,
  kPenUp,
  kDivide,
  kMultiply,
  kPush,
  kPop,
  kSubshape,
  kMove,
  kMoves,
  kOctantArc,
  kFractionalArc,
  kBulgeArc,
  kBulgeArcs,
  kVerticalOnly,
  kFirstVector = 16,  // 15 draws nothing
};

// The directions stand on a grid of half units: slanted vectors are longer than their length says.
constexpr std::array<Point2, 16> kDirections{{{1, 0},
                                              {1, 0.5},
                                              {1, 1},
                                              {0.5, 1},
                                              {0, 1},
                                              {-0.5, 1},
                                              {-1, 1},
                                              {-1, 0.5},
                                              {-1, 0},
                                              {-1, -0.5},
                                              {-1, -1},
                                              {-0.5, -1},
                                              {0, -1},
                                              {0.5, -1},
                                              {1, -1},
                                              {1, -0.5}}};

constexpr int kDeepestNesting = 8;
constexpr std::size_t kStackSize = 4;
constexpr double kOctant = base::kPi / 4;
constexpr double kLeastScale = 1e-6, kMostScale = 1e6;
constexpr int kPiecesOfEllipse = 64;

int byteAt(std::string_view bytes, std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); }
int signedAt(std::string_view bytes, std::size_t i) { return static_cast<std::int8_t>(bytes[i]); }
Point2 pairAt(std::string_view bytes, std::size_t i) {
  return {static_cast<double>(signedAt(bytes, i)), static_cast<double>(signedAt(bytes, i + 1))};
}
bool endsRun(std::string_view bytes, std::size_t i) {
  return bytes[i] == '\0' && bytes[i + 1] == '\0';
}

// Length of a run with its ending pair; one without end takes all the rest.
std::size_t runLength(std::string_view rest, std::size_t group) {
  for (std::size_t i = 0; i + 2 <= rest.size(); i += group) {
    if (endsRun(rest, i)) return i + 2;
  }
  return rest.size();
}

double bulgeOf(int byte) { return std::max(byte, -127) / 127.0; }

class Interpreter {
 public:
  Interpreter(const ShapeFont& font, ShapePen& pen, bool vertical, std::size_t mostSteps)
      : font_(font), pen_(pen), vertical_(vertical), mostSteps_(mostSteps) {}

  ShapeRun run(std::uint16_t code) {
    execute(font_.find(code));
    return {position_, steps_, cut_};
  }

 private:
  // --- bytes

  void execute(std::string_view bytes) {
    while (!bytes.empty()) {
      const auto [command, operands] = take(bytes);
      if (command == kEnd || !step()) return;
      if (command == kVerticalOnly && !vertical_ && !bytes.empty())
        take(bytes);
      else
        obey(command, operands);
    }
  }

  struct Taken {
    std::uint8_t command = kEnd;
    std::string_view operands;
  };

  // Takes a command with its operands away from the bytes; one that is cut off ends the shape.
  Taken take(std::string_view& bytes) const {
    const auto command = static_cast<std::uint8_t>(bytes[0]);
    bytes.remove_prefix(1);
    const std::size_t length = operandLength(command, bytes);
    if (length > bytes.size()) {
      bytes = {};
      return {};
    }
    const Taken taken{command, bytes.substr(0, length)};
    bytes.remove_prefix(length);
    return taken;
  }

  std::size_t operandLength(std::uint8_t command, std::string_view rest) const {
    switch (command) {
      case kDivide:
      case kMultiply: return 1;
      case kSubshape: return referenceLength(rest);
      case kMove:
      case kOctantArc: return 2;
      case kMoves: return runLength(rest, 2);
      case kFractionalArc: return 5;
      case kBulgeArc: return 3;
      case kBulgeArcs: return runLength(rest, 3);
      default: return 0;
    }
  }

  std::size_t referenceLength(std::string_view rest) const {
    if (font_.kind() == FontKind::Unifont) return 2;
    const bool fitted = font_.kind() == FontKind::BigFont && !rest.empty() && rest[0] == '\0';
    if (!fitted) return 1;
    return font_.metrics().extended ? 7 : 6;
  }

  bool step() {
    cut_ = steps_ >= mostSteps_;
    if (!cut_) ++steps_;
    return !cut_;
  }

  void obey(std::uint8_t command, std::string_view operands) {
    switch (command) {
      case kPenDown: down_ = true; return;
      case kPenUp: return lift();
      case kDivide: return rescale(1.0 / byteAt(operands, 0));
      case kMultiply: return rescale(byteAt(operands, 0));
      case kPush: return push();
      case kPop: return pop();
      case kSubshape: return subshape(operands);
      case kMove: return moveBy(pairAt(operands, 0));
      case kMoves: return moves(operands);
      case kOctantArc: return octantArc(operands);
      case kFractionalArc: return fractionalArc(operands);
      case kBulgeArc: return bulgeArc(pairAt(operands, 0), bulgeOf(signedAt(operands, 2)));
      case kBulgeArcs: return bulgeArcs(operands);
      default:
        if (command >= kFirstVector) moveBy(kDirections[command & 15] * (command >> 4));
    }
  }

  // --- state

  // A factor of 0 is an error of the font and is passed over, as is one that leads out of all
  // measure.
  void rescale(double factor) {
    const Point2 scale = scale_ * factor;
    const auto sound = [](double s) { return s >= kLeastScale && s <= kMostScale; };
    if (sound(scale.x) && sound(scale.y)) scale_ = scale;
  }

  void lift() {
    down_ = false;
    open_ = false;
  }

  void push() {
    if (depthOfStack_ < kStackSize) stack_[depthOfStack_++] = position_;
  }

  void pop() {
    if (depthOfStack_ > 0) jumpTo(stack_[--depthOfStack_]);
  }

  void jumpTo(Point2 to) {
    position_ = to;
    open_ = false;
  }

  Point2 scaled(Point2 by) const { return {by.x * scale_.x, by.y * scale_.y}; }
  bool isRound() const { return scale_.x == scale_.y; }

  void drawTo(Point2 to, double bulge) {
    if (to == position_) return;
    if (!down_) return jumpTo(to);
    if (!open_) pen_.move(position_);
    open_ = true;
    if (bulge != 0)
      pen_.arc(to, bulge);
    else
      pen_.line(to);
    position_ = to;
  }

  // --- subshapes

  void subshape(std::string_view operands) {
    const auto wide = [&](std::size_t i) {
      return static_cast<std::uint16_t>(byteAt(operands, i) << 8 | byteAt(operands, i + 1));
    };
    if (operands.size() > 2) return primitive(wide(1), operands.substr(3));
    call(operands.size() == 2 ? wide(0) : static_cast<std::uint16_t>(byteAt(operands, 0)));
  }

  // Deeper references, cycles among them, draw nothing.
  void call(std::uint16_t code) {
    if (depth_ >= kDeepestNesting) return;
    ++depth_;
    execute(font_.find(code));
    --depth_;
  }

  // The box is x, y, width, height or, in a plain font, x, y, size.
  void primitive(std::uint16_t code, std::string_view box) {
    const Point2 position = position_, scale = scale_;
    const FontMetrics& metrics = font_.metrics();
    const auto factor = [](int size, int whole) {
      return whole > 0 ? double{1} * size / whole : 1;
    };
    const std::uint8_t width = metrics.extended ? metrics.width : metrics.above;
    jumpTo(position_ + scaled(pairAt(box, 0)));
    scale_ =
        scaled({factor(byteAt(box, 2), width), factor(byteAt(box, box.size() - 1), metrics.above)});
    call(code);
    scale_ = scale;
    jumpTo(position);
  }

  // --- figures

  void moveBy(Point2 by) { drawTo(position_ + scaled(by), 0); }

  void moves(std::string_view run) {
    for (std::size_t i = 0; i + 2 <= run.size() && !endsRun(run, i) && step(); i += 2) {
      moveBy(pairAt(run, i));
    }
  }

  // From an angle of the circle on which the pen stands; a negative sweep is clockwise.
  void arc(double radius, double start, double sweep) {
    const Point2 from = position_;
    const double most = isRound() ? base::kPi / 2 : 2 * base::kPi / kPiecesOfEllipse;
    const int pieces = static_cast<int>(std::ceil(std::abs(sweep) / most - 1e-9));
    const double bulge = isRound() && pieces > 0 ? std::tan(sweep / pieces / 4) : 0;
    for (int i = 1; i <= pieces && step(); ++i) {
      const double angle = start + sweep * i / pieces;
      drawTo(from + scaled(Point2{std::cos(angle) - std::cos(start),
                                  std::sin(angle) - std::sin(start)} *
                           radius),
             bulge);
    }
  }

  struct Octants {
    explicit Octants(int byte)
        : direction(byte & 0x80 ? -1 : 1), first(byte >> 4 & 7), count(byte & 7 ? byte & 7 : 8) {}
    int direction, first, count;
  };

  void octantArc(std::string_view operands) {
    const Octants octants(byteAt(operands, 1));
    arc(byteAt(operands, 0), octants.first * kOctant, octants.direction * octants.count * kOctant);
  }

  void fractionalArc(std::string_view operands) {
    const Octants octants(byteAt(operands, 4));
    const double first = byteAt(operands, 0) / 256.0, last = byteAt(operands, 1) / 256.0;
    const double end = last == 0 ? octants.count : octants.count - 1 + last;
    const int radius = byteAt(operands, 2) << 8 | byteAt(operands, 3);
    arc(radius, (octants.first + octants.direction * first) * kOctant,
        octants.direction * (end - first) * kOctant);
  }

  void bulgeArc(Point2 chord, double bulge) {
    if (isRound() || bulge == 0) return drawTo(position_ + scaled(chord), bulge);
    // The circle before it is pressed into an ellipse.
    const double sweep = 4 * std::atan(bulge);
    const double radius = length(chord) / 2 / std::abs(std::sin(sweep / 2));
    const double quarter = bulge > 0 ? base::kPi / 2 : -base::kPi / 2;
    arc(radius, std::atan2(chord.y, chord.x) - sweep / 2 - quarter, sweep);
  }

  void bulgeArcs(std::string_view run) {
    for (std::size_t i = 0; i + 3 <= run.size() && !endsRun(run, i) && step(); i += 3) {
      bulgeArc(pairAt(run, i), bulgeOf(signedAt(run, i + 2)));
    }
  }

  const ShapeFont& font_;
  ShapePen& pen_;
  bool vertical_;
  std::size_t mostSteps_;
  std::size_t steps_ = 0;
  bool cut_ = false;
  Point2 position_;
  Point2 scale_{1, 1};
  bool down_ = true;
  bool open_ = false;  // the pen's stroke ends at the position
  std::array<Point2, kStackSize> stack_;
  std::size_t depthOfStack_ = 0;
  int depth_ = 0;
};

class Collector : public ShapePen {
 public:
  explicit Collector(std::vector<std::vector<ShapeVertex>>& strokes) : strokes_(strokes) {}
  void move(Point2 to) override { strokes_.push_back({{to, 0}}); }
  void line(Point2 to) override { strokes_.back().push_back({to, 0}); }
  void arc(Point2 to, double bulge) override { strokes_.back().push_back({to, bulge}); }

 private:
  std::vector<std::vector<ShapeVertex>>& strokes_;
};

}  // namespace

ShapeRun drawShape(const ShapeFont& font, std::uint16_t code, ShapePen& pen, bool vertical,
                   std::size_t mostSteps) {
  return Interpreter(font, pen, vertical, mostSteps).run(code);
}

ShapeStrokes strokesOf(const ShapeFont& font, std::uint16_t code, bool vertical) {
  ShapeStrokes out;
  Collector collector(out.strokes);
  out.run = drawShape(font, code, collector, vertical);
  return out;
}

}  // namespace drafting
