// `vornik dump`: every object of a drawing, a line each.
#include <iostream>
#include <map>
#include <unordered_set>

#include "embedded/base/numbers.h"
#include "embedded/drafting/database/fields.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "programs/vornik/field_dump.h"
#include "programs/vornik/json.h"
#include "programs/vornik/program.h"

namespace vornik {
namespace {

using namespace drafting;

constexpr std::string_view kUsage =
    "usage: vornik dump DRAWING [--json]\n"
    "  Prints every object: tables and blocks first, then the entities in drawing order. With\n"
    "  --json one JSON object a line.\n";

class Dump {
 public:
  Dump(const Database& database, bool json) : database_(database), json_(json) {}

  void run() {
    database_.forEach([this](const Object& object) {
      if (!isEntity(object.kind)) print(object, "");
    });
    database_.forEach([this](const Object& object) {
      if (object.kind == Kind::BlockRecord) showBlock(static_cast<const BlockRecord&>(object));
    });
    // Entities that no block's chain leads to: parts of what isn't understood.
    database_.forEach([this](const Object& object) {
      if (isEntity(object.kind) && !seen_.count(object.handle)) print(object, "");
    });
    if (!json_) showCounts();
  }

 private:
  void showBlock(const BlockRecord& block) {
    showEntity(block.begin, block.name);
    for (const Entity* entity = block.first; entity; entity = entity->next) {
      print(*entity, block.name);
      for (const Handle member : memberHandles(*entity)) showEntity(member, block.name);
    }
    showEntity(block.end, block.name);
  }

  void showEntity(Handle handle, const std::string& space) {
    if (const auto* entity = database_.find<Entity>(handle)) print(*entity, space);
  }

  void print(const Object& object, const std::string& space) {
    if (!seen_.insert(object.handle).second) return;
    const bool table = object.kind == Kind::Control;
    const std::string name(typeName(database_, object));
    const std::string type = table ? "TABLE" : name;
    ++counts_[type];
    FieldDump fields(database_);
    if (table) fields.member("table", jsonText(name));
    if (object.owner) fields.member("owner", jsonText(base::formatHex(object.owner)));
    if (isEntity(object.kind)) showCommon(static_cast<const Entity&>(object), space, fields);
    visit(object, [&]<class T>(const T& one) { walk<FieldDump>(fields, one); });
    if (object.extension) fields.member("extension", jsonText(base::formatHex(object.extension)));
    if (!object.reactors.empty()) {
      fields.member("reactors", jsonList(object.reactors, [](Handle handle) {
                      return jsonText(base::formatHex(handle));
                    }));
    }
    if (!object.xdata.empty()) fields.member("xdata", extendedData(database_, object));
    printLine(base::formatHex(object.handle), type, fields.members());
  }

  void showCommon(const Entity& entity, const std::string& space, FieldDump& fields) {
    if (!space.empty()) fields.member("space", jsonText(space));
    fields.handle("layer", 8, 0, entity.layer);
    fields.member("colour", std::to_string(entity.colour));
    const Handle linetype = entity.linetype;
    if (linetype == kByBlock)
      fields.text("linetype", 6, "ByBlock");
    else if (linetype == kContinuous)
      fields.text("linetype", 6, "Continuous");
    else if (linetype != kByLayer)
      fields.handle("linetype", 6, 0, linetype);
    if (entity.linetypeScale != 1) fields.real("linetypeScale", 48, entity.linetypeScale);
    const int weight = lineweightOfIndex(entity.lineweight);
    if (weight != -1) fields.member("lineweight", std::to_string(weight));
    if (entity.invisible) fields.bit("invisible", 60, true);
  }

  void printLine(const std::string& handle, const std::string& type, const std::string& members) {
    if (json_) {
      std::cout << "{\"handle\":\"" << handle << "\",\"type\":" << jsonText(type) << members
                << "}\n";
    } else {
      std::cout << handle << " " << (type.empty() ? "?" : type)
                << (members.empty() ? "" : " " + members.substr(1)) << "\n";
    }
  }

  void showCounts() {
    std::cout << "\n";
    for (const auto& [type, count] : counts_) {
      std::cout << count << " " << (type.empty() ? "?" : type) << "\n";
    }
  }

  const Database& database_;
  bool json_;
  std::unordered_set<Handle> seen_;
  std::map<std::string, int> counts_;
};

}  // namespace

int dumpCommand(const Words& words) {
  const Options options(words, "", "json help");
  if (options.flag("help")) return std::cout << kUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kUsage);
  if (options.plain().size() != 1) return usageError("one drawing is needed", kUsage);
  const auto database = readDrawing(
      options.plain()[0], [](std::string_view note) { std::cerr << "vornik: " << note << "\n"; });
  if (!database.ok()) return report(database.status());
  Dump(**database, options.flag("json")).run();
  return std::cout.flush() ? kDone : report(base::Status::failure("the output can't be written"));
}

}  // namespace vornik
