// Reads slides. A record's first two bytes are a number in file byte order, whose high byte is the
// record's kind; the single bytes behind it never swap.
#include "embedded/slide_store/slide.h"

#include <algorithm>
#include <bit>
#include <string>
#include <vector>

#include "embedded/slide_store/polygon.h"
#include "embedded/slide_store/slide_format.h"

namespace slide_store {

namespace {

constexpr double kLeastAspect = 0.001;  // of a level 1 slide read in its own byte order
constexpr double kMostAspect = 1000;

std::uint64_t unsignedAt(std::string_view bytes, std::size_t at, std::size_t size, bool highFirst) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const std::size_t next = highFirst ? at + i : at + size - 1 - i;
    value = value << 8 | static_cast<std::uint8_t>(bytes[next]);
  }
  return value;
}

std::uint16_t wordAt(std::string_view bytes, std::size_t at, bool highFirst) {
  return static_cast<std::uint16_t>(unsignedAt(bytes, at, 2, highFirst));
}

base::Status damage(std::size_t at, const char* reason) {
  return base::Status::failure("byte " + std::to_string(at) + ": " + reason);
}

// Total size of a record; 0 for a kind that nobody has laid down.
std::size_t recordSize(std::uint8_t kind) {
  if (kind <= kLastVector) return 8;
  switch (kind) {
    case kOffsetVector: return 5;
    case kSolidFill: return 6;
    case kCommonEndpoint: return 3;
    case kEndOfSlide:
    case kNewColour: return 2;
    default: return 0;
  }
}

// Nothing else bounds a chain of relative records.
SlidePoint moved(SlidePoint p, int dx, int dy) {
  return {std::clamp(p.x + dx, -32768, 32767), std::clamp(p.y + dy, -32768, 32767)};
}

// One run over the records.
class RecordReader {
 public:
  RecordReader(std::string_view slide, const SlideHeader& header, SlideVisitor& visitor)
      : slide_(slide), at_(header.recordsAt), highFirst_(header.highFirst), visitor_(visitor) {}

  base::Result<std::size_t> run() {
    while (at_ + 2 <= slide_.size()) {
      const std::uint16_t leading = wordAt(slide_, at_, highFirst_);
      const auto kind = static_cast<std::uint8_t>(leading >> 8);
      const std::size_t size = recordSize(kind);
      if (size == 0) return damage(at_, "is no slide record");
      if (at_ + size > slide_.size()) break;
      if (kind != kSolidFill) closeRun();
      if (kind == kEndOfSlide) return at_ + size;
      take(kind, static_cast<std::uint8_t>(leading));
      at_ += size;
    }
    return damage(at_, "the slide ends without an end record");
  }

 private:
  int number(std::size_t offset) const {
    return static_cast<std::int16_t>(wordAt(slide_, at_ + offset, highFirst_));
  }
  int byte(std::size_t offset) const { return static_cast<std::int8_t>(slide_[at_ + offset]); }

  void take(std::uint8_t kind, std::uint8_t low) {
    switch (kind) {
      case kNewColour: colour_ = low; break;
      case kSolidFill: takeCorner({number(2), number(4)}); break;
      case kOffsetVector:
        drawFrom(moved(last_, static_cast<std::int8_t>(low), byte(2)),
                 moved(last_, byte(3), byte(4)));
        break;
      case kCommonEndpoint: {
        const SlidePoint to = moved(last_, static_cast<std::int8_t>(low), byte(2));
        visitor_.line(last_, to, colour_);
        last_ = to;
        break;
      }
      default: drawFrom({number(0), number(2)}, {number(4), number(6)}); break;
    }
  }

  // What follows is relative to the from point, and not to where the line ends.
  void drawFrom(SlidePoint from, SlidePoint to) {
    visitor_.line(from, to, colour_);
    last_ = from;
  }

  // A negative y opens a run and closes it. A run without corners is opened anew, so that a run
  // whose closing record was lost doesn't cost the one behind it.
  void takeCorner(SlidePoint p) {
    if (!inRun_ || (p.y < 0 && corners_.empty())) {
      inRun_ = p.y < 0;
      announced_ = p.x;
    } else if (p.y < 0 || repeatsLastCorner(p)) {
      closeRun();
    } else {
      corners_.push_back(p);
    }
  }

  // Where the closing record is the last corner with its y negated, 0 isn't negative: the run's
  // own count then tells it from a corner.
  bool repeatsLastCorner(SlidePoint p) const {
    return p.y == 0 && !corners_.empty() && corners_.back() == p &&
           std::ssize(corners_) + 1 == announced_;
  }

  void closeRun() {
    if (inRun_ && threeDiffer(corners_)) visitor_.fill(corners_, colour_);
    inRun_ = false;
    corners_.clear();
  }

  std::string_view slide_;
  std::size_t at_;
  bool highFirst_;
  SlideVisitor& visitor_;
  SlidePoint last_;
  std::uint8_t colour_ = 0;
  bool inRun_ = false;
  int announced_ = 0;
  std::vector<SlidePoint> corners_;
};

class DrawsNothing : public SlideVisitor {
  void line(SlidePoint, SlidePoint, std::uint8_t) override {}
  void fill(std::span<const SlidePoint>, std::uint8_t) override {}
};

SlideHeader headerWithDots(std::string_view slide, int level, bool highFirst) {
  return {.level = level,
          .highFirst = highFirst,
          .highX = wordAt(slide, 19, highFirst),
          .highY = wordAt(slide, 21, highFirst)};
}

base::Result<SlideHeader> readLevel1(std::string_view slide) {
  if (slide.size() < kHeaderSize1) return damage(slide.size(), "the slide ends in its header");
  for (const bool highFirst : {false, true}) {
    SlideHeader header = headerWithDots(slide, 1, highFirst);
    header.aspect = std::bit_cast<double>(unsignedAt(slide, 23, 8, highFirst));
    header.recordsAt = kHeaderSize1;
    if (!(header.aspect >= kLeastAspect && header.aspect <= kMostAspect)) continue;
    DrawsNothing nothing;
    if (readSlideRecords(slide, header, nothing).ok()) return header;
  }
  return damage(kHeaderSize1, "the records end in neither byte order");
}

base::Result<SlideHeader> readLevel2(std::string_view slide) {
  if (slide.size() < kHeaderSize2) return damage(slide.size(), "the slide ends in its header");
  const bool highFirst = wordAt(slide, 29, true) == kByteOrderTest;
  if (!highFirst && wordAt(slide, 29, false) != kByteOrderTest) {
    return damage(29, "is no byte order's test number");
  }
  SlideHeader header = headerWithDots(slide, 2, highFirst);
  header.aspect = static_cast<double>(unsignedAt(slide, 23, 4, false)) / kAspectUnit;
  header.recordsAt = kHeaderSize2;
  return header;
}

}  // namespace

base::Result<SlideHeader> readSlideHeader(std::string_view slide) {
  if (!slide.starts_with(kSlideTitle)) return damage(0, "is no slide");
  if (slide.size() < 19) return damage(slide.size(), "the slide ends in its header");
  switch (slide[18]) {
    case 1: return readLevel1(slide);
    case 2: return readLevel2(slide);
    default: return damage(18, "is no level of slides");
  }
}

base::Result<std::size_t> readSlideRecords(std::string_view slide, const SlideHeader& header,
                                           SlideVisitor& visitor) {
  return RecordReader(slide, header, visitor).run();
}

}  // namespace slide_store
