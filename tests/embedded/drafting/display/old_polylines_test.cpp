// Polylines of the old form, and dimensions by their blocks.
#include "embedded/drafting/display/picture_fixture.h"

namespace drafting {
namespace {

using Kind = DisplayList::Kind;
using Form = Polyline::Form;
using Part = Vertex::Form;

class OldPolylines : public PictureTest {
 protected:
  Polyline& add(Polyline polyline, const std::vector<Vertex>& vertices) {
    Polyline& made = PictureTest::add(polyline);
    for (const Vertex& vertex : vertices) {
      auto owned = std::make_unique<Vertex>(vertex);
      owned->layer = zero();
      db->appendMember(made, std::move(owned));
    }
    return made;
  }
  static Vertex at(double x, double y, Part form = Part::Flat, std::uint8_t flags = 0) {
    Vertex vertex;
    vertex.form = form;
    vertex.flags = flags;
    vertex.position = {x, y, 0};
    return vertex;
  }
  static Polyline of(Form form, std::int16_t flags = 0) {
    Polyline polyline;
    polyline.form = form;
    polyline.flags = flags;
    return polyline;
  }
};

TEST_F(OldPolylines, FlatOneHasBulgesAndWidths) {
  Vertex bulged = at(0, 0), wide = at(2, 0);
  bulged.bulge = 1;
  wide.startWidth = 2;
  add(of(Form::Flat), {bulged, wide, at(6, 0)});
  const DisplayList list = shown();
  ASSERT_EQ(list.items().size(), 2u);
  EXPECT_EQ(list.items()[0].kind, Kind::Stroke);
  EXPECT_EQ(list.items()[1].kind, Kind::Area);
  EXPECT_EQ(points(1), (std::vector<Point2>{{2, 1}, {6, 0}, {6, 0}, {2, -1}}));
}

TEST_F(OldPolylines, CurveShowsItsPointsAndNotItsFrame) {
  add(of(Form::Flat, 4),
      {at(0, 0, Part::Flat, 16), at(5, 9, Part::Flat, 16), at(0, 0, Part::Flat, 8),
       at(5, 4, Part::Flat, 8), at(10, 0, Part::Flat, 8)});
  EXPECT_EQ(points(), (std::vector<Point2>{{0, 0}, {5, 4}, {10, 0}}));
}

TEST_F(OldPolylines, ClosedLineInSpaceReturnsToItsStart) {
  add(of(Form::Space, 1), {at(0, 0, Part::Space), at(1, 0, Part::Space), at(0, 1, Part::Space)});
  EXPECT_EQ(points(), (std::vector<Point2>{{0, 0}, {1, 0}, {0, 1}, {0, 0}}));
}

TEST_F(OldPolylines, MeshShowsItsRowsAndColumns) {
  Polyline mesh = of(Form::Mesh, 16);
  mesh.counts = {2, 3, 0, 0};
  std::vector<Vertex> vertices;
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) vertices.push_back(at(column, row, Part::Mesh, 64));
  }
  add(mesh, vertices);
  EXPECT_EQ(shown().items().size(), 5u);
  EXPECT_EQ(points(0), (std::vector<Point2>{{0, 0}, {1, 0}, {2, 0}}));
  EXPECT_EQ(points(4), (std::vector<Point2>{{2, 0}, {2, 1}}));
}

TEST_F(OldPolylines, PolyfaceShowsTheEdgesThatAreNotHidden) {
  Vertex face = at(0, 0, Part::Face, 128), wrong = face;
  face.corners = {1, -2, 3, 0};
  wrong.corners = {1, 900, -32768, 3};
  add(of(Form::Polyface), {at(0, 0, Part::Polyface, 192), at(1, 0, Part::Polyface, 192),
                           at(0, 1, Part::Polyface, 192), face, wrong});
  const DisplayList list = shown();
  ASSERT_EQ(list.items().size(), 3u);
  EXPECT_EQ(points(0), (std::vector<Point2>{{0, 0}, {1, 0}}));
  EXPECT_EQ(points(1), (std::vector<Point2>{{0, 1}, {0, 0}}));
}

TEST_F(OldPolylines, MeshOfTooFewVerticesIsALine) {
  Polyline mesh = of(Form::Mesh, 16);
  mesh.counts = {200, 300, 0, 0};
  add(mesh, {at(0, 0, Part::Mesh), at(1, 1, Part::Mesh)});
  EXPECT_EQ(points(), (std::vector<Point2>{{0, 0}, {1, 1}}));
}

TEST_F(OldPolylines, LinetypeRunsThroughWhereTheFlagSaysSo) {
  auto dashed = std::make_unique<Linetype>();
  dashed->name = "DASHED";
  dashed->dashes = {{2}, {-1}};
  Polyline polyline = of(Form::Flat, 128);
  polyline.linetype = db->addRecord(Table::Linetypes, std::move(dashed));
  add(polyline, {at(0, 0), at(4, 0), at(4, 4)});
  EXPECT_EQ(shown().items().size(), 3u);
}

TEST_F(OldPolylines, ErasedVertexIsPassedOver) {
  Polyline& polyline = add(of(Form::Flat), {at(0, 0), at(5, 5), at(1, 0)});
  const Handle middle = polyline.vertices[1];
  db->erase(middle);
  EXPECT_EQ(points(), (std::vector<Point2>{{0, 0}, {1, 0}}));
  EXPECT_EQ(polyline.vertices.size(), 2u);
  db->journal().undo();
}

class Dimensions : public PictureTest {};

TEST_F(Dimensions, AreShownByTheirBlock) {
  BlockRecord& picture = block("*D1");
  Line byBlock = line(1, 2, 3, 4);
  byBlock.colour = kColourByBlock;
  add(picture, byBlock);
  RawEntity dimension;
  dimension.type = 0x15;
  dimension.colour = 3;
  dimension.references = {{kHardPointer, zero()}, {kHardPointer, picture.handle}};
  add(dimension);
  EXPECT_EQ(points(), (std::vector<Point2>{{1, 2}, {3, 4}}));
  EXPECT_EQ(colours(), std::vector<int>{3});
  EXPECT_TRUE(shown().notShown().empty());
}

TEST_F(Dimensions, BlockThatHoldsItsOwnDimensionEnds) {
  BlockRecord& picture = block("*D1");
  RawEntity dimension;
  dimension.type = 0x14;
  dimension.references = {{kHardPointer, picture.handle}};
  add(picture, dimension);
  add(picture, line(0, 0, 1, 1));
  add(dimension);
  EXPECT_LE(shown().items().size(), 40u);
  EXPECT_GE(shown().items().size(), 1u);
}

TEST_F(Dimensions, WithoutABlockIsCounted) {
  RawEntity dimension;
  dimension.type = 0x14;
  add(dimension);
  EXPECT_EQ(shown().notShown().at("DIMENSION"), 1);
}

}  // namespace
}  // namespace drafting
