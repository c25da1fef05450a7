// Runs the text files of this folder, with functions of their own that write drawings:
// (markdrawing PATH) one to insert, (kindsdrawing PATH) one of kinds that no command draws.
#include <gtest/gtest.h>

#include "embedded/base/paths.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "support/conversation.h"

namespace {

using namespace drafting;

template <class T>
std::unique_ptr<T> onLayerZero(const Database& database) {
  auto entity = std::make_unique<T>();
  entity->layer = database.findRecord(Table::Layers, "0");
  return entity;
}

void addDefinition(Database& database, const char* tag, const char* prompt, const char* value,
                   std::uint8_t flags) {
  auto definition = onLayerZero<Attdef>(database);
  definition->style = database.findRecord(Table::Styles, "Standard");
  definition->tag = tag;
  definition->prompt = prompt;
  definition->text = value;
  definition->height = 1;
  definition->flags = flags;
  database.append(database.modelSpace(), std::move(definition));
}

lisp::Value writeMarkDrawing(lisp::Interpreter& self, const std::vector<lisp::Value>& arguments) {
  const auto database = Database::makeNew();
  database->setVariable("INSBASE", Point3{1, 1, 0});
  auto line = onLayerZero<Line>(*database);
  line->start = {1, 1, 0};
  line->end = {3, 1, 0};
  database->append(database->modelSpace(), std::move(line));
  addDefinition(*database, "SCALE", "Scale of the circuit", "1", kAttributeInvisible);
  addDefinition(*database, "FIXED", "", "f", kAttributeConstant);
  addDefinition(*database, "SET", "", "p", kAttributePreset);
  const base::Status status = saveDrawingFile(*database, *arguments.at(0).text());
  return status ? lisp::Value() : self.fail(status.message());
}

void addVertices(Database& database, Polyline::Form form, std::int16_t flags,
                 const std::vector<Point3>& places, double bulge) {
  auto polyline = onLayerZero<Polyline>(database);
  polyline->form = form;
  polyline->flags = flags;
  const Handle made = database.append(database.modelSpace(), std::move(polyline));
  for (const Point3& place : places) {
    auto vertex = onLayerZero<Vertex>(database);
    vertex->form = form == Polyline::Form::Flat ? Vertex::Form::Flat : Vertex::Form::Space;
    vertex->position = place;
    vertex->bulge = bulge;
    database.appendMember(*database.find<Entity>(made), std::move(vertex));
  }
}

// A paragraph, a flat polyline and one in space, a hatch.
lisp::Value writeKindsDrawing(lisp::Interpreter& self, const std::vector<lisp::Value>& arguments) {
  const auto database = Database::makeNew();
  auto paragraph = onLayerZero<MText>(*database);
  paragraph->style = database->findRecord(Table::Styles, "Standard");
  paragraph->position = {0, 40, 0};
  paragraph->height = 3;
  paragraph->text = "one\\P{\\C1;\\H2x;\\Ltwo}\\P\\Kout\\k \\S1/2;";
  database->append(database->modelSpace(), std::move(paragraph));
  addVertices(*database, Polyline::Form::Flat, 1, {{0, 0, 0}, {10, 0, 0}}, 1);
  addVertices(*database, Polyline::Form::Space, 1, {{20, 0, 0}, {30, 0, 5}, {30, 10, 5}}, 0);
  auto hatch = onLayerZero<Hatch>(*database);
  hatch->pattern = "SOLID";
  hatch->solid = true;
  Hatch::Path square;
  square.flags = 2;
  square.points = {{50, 0}, {60, 0}, {60, 10}, {50, 10}};
  square.closed = true;
  hatch->paths.push_back(square);
  database->append(database->modelSpace(), std::move(hatch));
  const base::Status status = saveDrawingFile(*database, *arguments.at(0).text());
  return status ? lisp::Value() : self.fail(status.message());
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  test::registerConversations("tests/embedded/drafting/commands", [](Session& session) {
    session.lisp.define({"markdrawing", false, writeMarkDrawing});
    session.lisp.define({"kindsdrawing", false, writeKindsDrawing});
  });
  return RUN_ALL_TESTS();
}
