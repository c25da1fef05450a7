// How the circuits look, on a slide (x as in the row) and in a drawing (x times 1.2, figures as
// they are): wires meet, labels stand clear of figures and of each other.
#include <gtest/gtest.h>

#include <map>

#include "embedded/base/text.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/display/text_layout.h"
#include "engine/row_reader.h"
#include "samples/generator/definitions.h"
#include "samples/generator/drawings.h"

namespace samples {
namespace {

using base::Box2;
using base::Point2;

struct Segment {
  Point2 from, to;
};

double distanceTo(const Segment& segment, Point2 p) {
  const Point2 way = segment.to - segment.from, off = p - segment.from;
  const double square = way.x * way.x + way.y * way.y;
  const double at = square > 0 ? std::clamp((off.x * way.x + off.y * way.y) / square, 0.0, 1.0) : 0;
  return base::distance(p, segment.from + way * at);
}

bool overlap(const Box2& a, const Box2& b) {
  return a.min.x < b.max.x && b.min.x < a.max.x && a.min.y < b.max.y && b.min.y < a.max.y;
}

// Steps along the segment are finer than any label is high.
bool crosses(const Segment& segment, const Box2& box) {
  constexpr int kSteps = 200;
  for (int i = 0; i <= kSteps; ++i) {
    const Point2 p = segment.from + (segment.to - segment.from) * (static_cast<double>(i) / kSteps);
    if (p.x > box.min.x && p.x < box.max.x && p.y > box.min.y && p.y < box.max.y) return true;
  }
  return false;
}

// The strokes of a symbol as it is drawn, its letters included.
const std::vector<Segment>& figureOf(const std::string& name) {
  static std::map<std::string, std::vector<Segment>> known;
  if (known.empty()) {
    for (const SymbolDefinition& symbol : symbols()) {
      const auto list = drafting::DisplayList::of(*makeFigureDrawing(symbol.figure));
      auto& segments = known[symbol.name];
      for (const auto& item : list.items()) {
        const auto points = list.points(item);
        for (std::size_t i = 1; i < points.size(); ++i)
          segments.push_back({points[i - 1], points[i]});
      }
    }
  }
  return known.at(name);
}

class SamplePictures : public ::testing::TestWithParam<double> {
 protected:
  // Everything that is drawn of a circuit but its labels.
  struct Picture {
    std::string number;
    CircuitRow row;
    std::vector<Segment> figures, lines;
  };

  Point2 mapped(RowPoint p) const { return {p.x * GetParam(), p.y}; }

  std::vector<Picture> pictures() const {
    std::vector<Picture> out;
    for (const CircuitDefinition& circuit : circuits()) {
      Picture picture{circuit.number, readRow(base::wideFromUtf8(dataRow(circuit))).row, {}, {}};
      for (std::size_t i = 0; i < picture.row.names.size(); ++i) {
        const Point2 at = mapped(picture.row.points[i]);
        for (const Segment& s : figureOf(base::utf8FromWide(picture.row.names[i]))) {
          picture.figures.push_back({s.from + at, s.to + at});
        }
      }
      for (std::size_t i = 0; i < picture.row.starts.size(); ++i) {
        picture.lines.push_back({mapped(picture.row.starts[i]), mapped(picture.row.ends[i])});
      }
      out.push_back(std::move(picture));
    }
    return out;
  }

  Box2 labelBox(const CircuitRow& row, std::size_t i) const {
    const double height = row.heights[i];
    const auto line = drafting::layOutLine(base::utf8FromWide(row.texts[i]));
    const Point2 at = mapped(row.textPoints[i]);
    Box2 box;
    for (const auto& stroke : line.strokes) {
      for (const Point2 point : stroke) box.add(at + point * height);
    }
    return box;
  }
};

TEST_P(SamplePictures, BothEndsOfEachLineMeetAWire) {
  constexpr double kTouching = 0.01;
  for (const Picture& picture : pictures()) {
    for (std::size_t i = 0; i < picture.lines.size(); ++i) {
      for (const Point2 end : {picture.lines[i].from, picture.lines[i].to}) {
        double nearest = 1000;
        for (const Segment& s : picture.figures) nearest = std::min(nearest, distanceTo(s, end));
        for (std::size_t k = 0; k < picture.lines.size(); ++k) {
          if (k != i) nearest = std::min(nearest, distanceTo(picture.lines[k], end));
        }
        EXPECT_LT(nearest, kTouching) << picture.number << ": " << end.x << "," << end.y;
      }
    }
  }
}

TEST_P(SamplePictures, LabelsStandClearOfFiguresAndLines) {
  for (const Picture& picture : pictures()) {
    for (std::size_t i = 0; i < picture.row.texts.size(); ++i) {
      const Box2 box = labelBox(picture.row, i);
      int hits = 0;
      for (const auto* segments : {&picture.figures, &picture.lines}) {
        for (const Segment& segment : *segments) hits += crosses(segment, box);
      }
      EXPECT_EQ(hits, 0) << picture.number << ": " << base::utf8FromWide(picture.row.texts[i]);
    }
  }
}

TEST_P(SamplePictures, LabelsDoNotOverlap) {
  for (const Picture& picture : pictures()) {
    for (std::size_t i = 0; i < picture.row.texts.size(); ++i) {
      for (std::size_t k = 0; k < i; ++k) {
        EXPECT_FALSE(overlap(labelBox(picture.row, i), labelBox(picture.row, k)))
            << picture.number << ": " << base::utf8FromWide(picture.row.texts[i]) << ", "
            << base::utf8FromWide(picture.row.texts[k]);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(OnSlideAndInDrawing, SamplePictures, ::testing::Values(1.0, 1.2));

// A slide shows what lies within the frame (-26.25, 6) to (26.25, -134).
TEST(SampleSlides, CircuitsStayWithinTheFrame) {
  for (const CircuitDefinition& circuit : circuits()) {
    const CircuitRow row = readRow(base::wideFromUtf8(dataRow(circuit))).row;
    Box2 box;
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      for (const Segment& s : figureOf(base::utf8FromWide(row.names[i]))) {
        box.add(s.from + Point2{row.points[i].x, row.points[i].y});
        box.add(s.to + Point2{row.points[i].x, row.points[i].y});
      }
    }
    EXPECT_GT(box.min.x, -26.25) << circuit.number;
    EXPECT_LT(box.max.x, 26.25) << circuit.number;
    EXPECT_GT(box.min.y, -134) << circuit.number;
    EXPECT_LT(box.max.y, 6) << circuit.number;
  }
}

// All groups are inserted at the same point below a circuit.
TEST(SampleAuxiliaryPictures, GroupsStandInBandsOfTheirOwn) {
  std::vector<Box2> bands;
  for (const AuxiliaryGroup& group : auxiliaryGroups()) {
    Box2 band;
    for (const AuxiliaryItem& item : group.items) {
      band.add(drafting::DisplayList::of(*makeFigureDrawing(item.figure)).bounds());
    }
    EXPECT_LE(band.max.y, 0);
    EXPECT_TRUE(bands.empty() || band.max.y < bands.back().min.y);
    bands.push_back(band);
  }
}

TEST(SampleTexts, FontHasEveryCharacterOfTheLibrary) {
  std::string all;
  for (const SymbolDefinition& symbol : symbols()) all += symbol.chinese;
  for (const CircuitDefinition& circuit : circuits()) {
    all += circuit.chinese;
    for (const Label& label : circuit.labels) all += label.text;
  }
  for (const AuxiliaryGroup& group : auxiliaryGroups()) all += group.title;
  for (const wchar_t c : base::wideFromUtf8(all)) {
    EXPECT_TRUE(drafting::hasGlyph(static_cast<char32_t>(c))) << static_cast<unsigned>(c);
  }
}

}  // namespace
}  // namespace samples
