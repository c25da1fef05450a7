// Runs the text files of this folder, with (markdrawing PATH) as a function of their own.
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

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  test::registerConversations("tests/embedded/drafting/commands", [](Session& session) {
    session.lisp.define({"markdrawing", false, writeMarkDrawing});
  });
  return RUN_ALL_TESTS();
}
