#include "embedded/drafting/database/old_polylines.h"

#include <cstdlib>

namespace drafting {
namespace {

using Path = std::vector<Point2>;

constexpr int kClosed = 1, kFitted = 4, kClosedAcross = 32;
constexpr int kOfFrame = 16, kOfSurface = 64;  // of vertices

Point2 placeOf(const Vertex& vertex) { return base::flat(vertex.position); }

Path wayOf(const std::vector<const Vertex*>& vertices, bool closed) {
  Path path;
  for (const Vertex* vertex : vertices) path.push_back(placeOf(*vertex));
  if (closed && path.size() > 2) path.push_back(path.front());
  return path;
}

// The lines along and across. A smoothed surface has counts of its own.
std::vector<Path> meshPaths(const Polyline& mesh, const std::vector<const Vertex*>& vertices) {
  const std::size_t first = (mesh.flags & kFitted) != 0 && mesh.counts[2] > 0 ? 2 : 0;
  const int rows = mesh.counts[first], columns = mesh.counts[first + 1];
  const auto count = static_cast<std::int64_t>(vertices.size());
  if (rows < 1 || columns < 1 || std::int64_t{rows} * columns > count) {
    return {wayOf(vertices, false)};
  }
  const auto at = [&](int row, int column) {
    return vertices[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                    static_cast<std::size_t>(column)];
  };
  std::vector<Path> paths;
  for (int row = 0; row < rows; ++row) {
    std::vector<const Vertex*> line;
    line.reserve(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column) line.push_back(at(row, column));
    paths.push_back(wayOf(line, (mesh.flags & kClosedAcross) != 0));
  }
  for (int column = 0; column < columns; ++column) {
    std::vector<const Vertex*> line;
    line.reserve(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row) line.push_back(at(row, column));
    paths.push_back(wayOf(line, (mesh.flags & kClosed) != 0));
  }
  return paths;
}

// The corners come first, then faces of their numbers; an edge behind a negative one is hidden.
std::vector<Path> polyfacePaths(const std::vector<const Vertex*>& vertices) {
  std::vector<const Vertex*> corners;
  for (const Vertex* vertex : vertices) {
    if (vertex->form != Vertex::Form::Face && (vertex->flags & kOfSurface)) {
      corners.push_back(vertex);
    }
  }
  std::vector<Path> paths;
  for (const Vertex* face : vertices) {
    if (face->form != Vertex::Form::Face) continue;
    std::size_t sides = 0;
    while (sides < face->corners.size() && face->corners[sides] != 0) ++sides;
    for (std::size_t i = 0; i < sides; ++i) {
      const auto from = static_cast<std::size_t>(std::abs(face->corners[i]));
      const auto to = static_cast<std::size_t>(std::abs(face->corners[(i + 1) % sides]));
      if (face->corners[i] < 0 || from > corners.size() || to > corners.size()) continue;
      paths.push_back({placeOf(*corners[from - 1]), placeOf(*corners[to - 1])});
    }
  }
  return paths;
}

}  // namespace

std::vector<const Vertex*> shownVertices(const Database& database, const Polyline& polyline) {
  std::vector<const Vertex*> shown;
  for (const Handle handle : polyline.vertices) {
    const auto* vertex = database.find<Vertex>(handle);
    if (vertex && !(vertex->flags & kOfFrame)) shown.push_back(vertex);
  }
  return shown;
}

LwPolyline flatPolyline(const Database& database, const Polyline& polyline) {
  LwPolyline line;
  line.copyLook(polyline);
  line.elevation = polyline.elevation;
  line.thickness = polyline.thickness;
  line.normal = polyline.normal;
  line.closed = (polyline.flags & kClosed) != 0;
  line.continuousPattern = (polyline.flags & 128) != 0;
  for (const Vertex* vertex : shownVertices(database, polyline)) {
    line.points.push_back(placeOf(*vertex));
    line.bulges.push_back(vertex->bulge);
    line.widths.push_back({vertex->startWidth, vertex->endWidth});
  }
  return line;
}

std::vector<Path> spacePaths(const Database& database, const Polyline& polyline) {
  const std::vector<const Vertex*> vertices = shownVertices(database, polyline);
  switch (polyline.form) {
    case Polyline::Form::Mesh: return meshPaths(polyline, vertices);
    case Polyline::Form::Polyface: return polyfacePaths(vertices);
    default: return {wayOf(vertices, (polyline.flags & kClosed) != 0)};
  }
}

}  // namespace drafting
