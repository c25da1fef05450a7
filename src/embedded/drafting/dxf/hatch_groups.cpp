// The parts of a HATCH as DXF groups. Codes repeat from path to path and from line to line, so that
// what a group means goes by what stands in front of it:
//   91 paths; each 92 flags, then 72 has bulges, 73 closed, 93 points, 10 and 42 of each; or 93
//   edges, 72 form of each and its groups; 97 sources, 330 each
//   52 angle, 41 scale, 77 double, 78 lines; each 53, 43 44 base, 45 46 offset, 79 dashes, 49 each
//   47 size of a pixel, 98 seeds, 10 each
#include <algorithm>

#include "embedded/drafting/dxf/group_reader.h"
#include "embedded/drafting/dxf/group_writer.h"

namespace drafting {
namespace {

using Edge = Hatch::Edge;
using Form = Edge::Form;

class PathReader {
 public:
  explicit PathReader(std::vector<Hatch::Path>& paths) : paths_(paths) {}

  void take(const Group& group) {
    if (group.code == 92) {
      paths_.emplace_back();
      paths_.back().flags = static_cast<std::uint32_t>(GroupSection::integerOf(group));
      edge_ = nullptr;
    } else if (paths_.empty()) {
      return;
    } else if (group.code == 330) {
      paths_.back().sources.push_back(GroupSection::handleOf(group));
    } else if (paths_.back().isPolyline()) {
      takePolyline(paths_.back(), group);
    } else if (group.code == 72) {
      beginEdge(GroupSection::integerOf(group));
    } else if (edge_ && edge_->form == Form::Spline) {
      takeSpline(*edge_, group);
    } else if (edge_) {
      takeEdge(*edge_, group);
    }
  }
  // Lists that only some points have come to their full length.
  void finish() {
    for (Hatch::Path& path : paths_) {
      if (!path.bulges.empty()) path.bulges.resize(path.points.size());
      for (Edge& edge : path.edges) {
        if (edge.rational) edge.weights.resize(edge.controls.size(), 1);
      }
    }
  }

 private:
  static void takePolyline(Hatch::Path& path, const Group& group) {
    const double value = GroupSection::realOf(group);
    if (group.code == 73) path.closed = GroupSection::integerOf(group) != 0;
    if (group.code == 10) path.points.push_back({value, 0});
    if (path.points.empty()) return;
    if (group.code == 20) path.points.back().y = value;
    if (group.code != 42) return;
    path.bulges.resize(path.points.size());
    path.bulges.back() = value;
  }
  void beginEdge(int form) {
    edge_ = nullptr;
    if (form < 1 || form > 4) return;
    edge_ = &paths_.back().edges.emplace_back();
    edge_->form = static_cast<Form>(form);
  }
  static void takeEdge(Edge& edge, const Group& group) {
    const double value = GroupSection::realOf(group);
    switch (group.code) {
      case 10: edge.first.x = value; break;
      case 20: edge.first.y = value; break;
      case 11: edge.second.x = value; break;
      case 21: edge.second.y = value; break;
      case 40: edge.size = value; break;
      case 50: edge.startAngle = base::radians(value); break;
      case 51: edge.endAngle = base::radians(value); break;
      case 73: edge.counterClockwise = GroupSection::integerOf(group) != 0; break;
      default: break;
    }
  }
  static void takeSpline(Edge& edge, const Group& group) {
    const double value = GroupSection::realOf(group);
    switch (group.code) {
      case 94: edge.degree = GroupSection::integerOf(group); break;
      case 73: edge.rational = GroupSection::integerOf(group) != 0; break;
      case 74: edge.periodic = GroupSection::integerOf(group) != 0; break;
      case 40: edge.knots.push_back(value); break;
      case 10: edge.controls.push_back({value, 0}); break;
      case 20:
        if (!edge.controls.empty()) edge.controls.back().y = value;
        break;
      case 42:
        if (edge.rational) edge.weights.push_back(value);
        break;
      default: break;
    }
  }

  std::vector<Hatch::Path>& paths_;
  Edge* edge_ = nullptr;  // the one being read
};

void takeLine(std::vector<Hatch::PatternLine>& lines, const Group& group) {
  const double value = GroupSection::realOf(group);
  if (group.code == 53) lines.push_back({base::radians(value), {}, {}, {}});
  if (lines.empty()) return;
  Hatch::PatternLine& line = lines.back();
  if (group.code == 43) line.base.x = value;
  if (group.code == 44) line.base.y = value;
  if (group.code == 45) line.offset.x = value;
  if (group.code == 46) line.offset.y = value;
  if (group.code == 49) line.dashes.push_back(value);
}

}  // namespace

// --- reading

void GroupReader::hatchPaths(Hatch& hatch) {
  hatch.paths.clear();
  PathReader reader(hatch.paths);
  bool begun = false;
  for (const Group& group : groups_) {
    if (begun && group.code == 75) break;
    if (begun) reader.take(group);
    begun = begun || group.code == 91;
  }
  reader.finish();
}

void GroupReader::hatchLines(Hatch& hatch) {
  hatch.lines.clear();
  if (hatch.solid) return;
  angle("angle", 52, hatch.angle);
  real("scale", 41, hatch.scale);
  bit("isDouble", 77, hatch.isDouble);
  bool begun = false;
  for (const Group& group : groups_) {
    if (begun && group.code == 98) break;
    if (begun) takeLine(hatch.lines, group);
    begun = begun || group.code == 78;
  }
}

void GroupReader::hatchSeeds(Hatch& hatch) {
  hatch.seeds.clear();
  real("pixelSize", 47, hatch.pixelSize);
  bool begun = false;
  for (const Group& group : groups_) {
    if (begun && group.code == 10) hatch.seeds.push_back({GroupSection::realOf(group), 0});
    if (group.code == 20 && !hatch.seeds.empty()) {
      hatch.seeds.back().y = GroupSection::realOf(group);
    }
    begun = begun || group.code == 98;
  }
}

// --- writing

void GroupWriter::size(int group, std::size_t count) {
  sink_.integer(group, static_cast<std::int64_t>(count));
}

void GroupWriter::hatchPaths(const Hatch& hatch) {
  size(91, hatch.paths.size());
  for (const Hatch::Path& path : hatch.paths) {
    sink_.integer(92, path.flags);
    if (path.isPolyline()) {
      hatchPolyline(path);
    } else {
      size(93, path.edges.size());
      for (const Edge& edge : path.edges) hatchEdge(edge);
    }
    std::vector<Handle> sources = path.sources;
    std::erase_if(sources, [this](Handle source) { return !isThere(source); });
    size(97, sources.size());
    for (const Handle source : sources) sink_.handle(330, source);
  }
}

void GroupWriter::hatchPolyline(const Hatch::Path& path) {
  const bool hasBulges = !path.bulges.empty();
  sink_.integer(72, hasBulges ? 1 : 0);
  sink_.integer(73, path.closed ? 1 : 0);
  size(93, path.points.size());
  for (std::size_t i = 0; i < path.points.size(); ++i) {
    sink_.flat(10, path.points[i]);
    if (hasBulges) sink_.real(42, i < path.bulges.size() ? path.bulges[i] : 0);
  }
}

void GroupWriter::hatchEdge(const Edge& edge) {
  sink_.integer(72, static_cast<int>(edge.form));
  if (edge.form == Form::Spline) return hatchSpline(edge);
  sink_.flat(10, edge.first);
  if (edge.form != Form::Arc) sink_.flat(11, edge.second);
  if (edge.form == Form::Line) return;
  sink_.real(40, edge.size);
  sink_.angle(50, edge.startAngle);
  sink_.angle(51, edge.endAngle);
  sink_.integer(73, edge.counterClockwise ? 1 : 0);
}

void GroupWriter::hatchSpline(const Edge& edge) {
  sink_.integer(94, edge.degree);
  sink_.integer(73, edge.rational ? 1 : 0);
  sink_.integer(74, edge.periodic ? 1 : 0);
  size(95, edge.knots.size());
  size(96, edge.controls.size());
  for (const double knot : edge.knots) sink_.real(40, knot);
  for (std::size_t i = 0; i < edge.controls.size(); ++i) {
    sink_.flat(10, edge.controls[i]);
    if (edge.rational) sink_.real(42, i < edge.weights.size() ? edge.weights[i] : 1);
  }
}

void GroupWriter::hatchLines(const Hatch& hatch) {
  if (hatch.solid) return;
  sink_.angle(52, hatch.angle);
  sink_.real(41, hatch.scale);
  sink_.integer(77, hatch.isDouble ? 1 : 0);
  size(78, hatch.lines.size());
  for (const Hatch::PatternLine& line : hatch.lines) {
    sink_.angle(53, line.angle);
    sink_.real(43, line.base.x);
    sink_.real(44, line.base.y);
    sink_.real(45, line.offset.x);
    sink_.real(46, line.offset.y);
    size(79, line.dashes.size());
    for (const double dash : line.dashes) sink_.real(49, dash);
  }
}

void GroupWriter::hatchSeeds(const Hatch& hatch) {
  if (hatch.hasDerivedPath()) sink_.real(47, hatch.pixelSize);
  size(98, hatch.seeds.size());
  for (const Point2& seed : hatch.seeds) sink_.flat(10, seed);
}

}  // namespace drafting
