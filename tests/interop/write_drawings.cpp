// Writes drawings for independent readers to read, as DWG and as DXF, each with what it holds as
// NAME.json:
//   write_drawings OUT DATA     DATA is the folder of real drawings
// New ones with every kind, real ones as they were opened, and real ones that were worked on.
#include <cstdio>
#include <filesystem>
#include <map>

#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "embedded/drafting/dxf/dxf_reader.h"
#include "embedded/drafting/dxf/dxf_writer.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

std::string inQuotes(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + "\"";
}

std::string object(const std::map<std::string, int>& counts) {
  std::string out;
  for (const auto& [name, n] : counts) {
    out += (out.empty() ? "" : ",") + inQuotes(name) + ":" + std::to_string(n);
  }
  return "{" + out + "}";
}

std::string names(const Database& db, Table table) {
  std::string out;
  const Control& control = db.table(table);
  const auto add = [&](Handle record) {
    if (record != 0) out += (out.empty() ? "" : ",") + inQuotes(db.recordName(record));
  };
  for (const Handle record : control.records) add(record);
  for (const Handle record : control.extras) add(record);
  return "[" + out + "]";
}

// Readers tell the array form of an INSERT from the plain one.
std::string nameOf(const Database& db, const Object& object) {
  const bool isArray = object.kind == Kind::Insert && static_cast<const Insert&>(object).isArray;
  return isArray ? "MINSERT" : std::string(typeName(db, object));
}

// Where the entities of model space are drawn, by handle.
std::string boxes(const Database& db) {
  std::string out;
  const DisplayList list = DisplayList::of(db);
  for (const DisplayList::Chunk& chunk : list.chunks()) {
    if (chunk.box.empty()) continue;
    char text[200];
    std::snprintf(text, sizeof text, "%s\"%llX\":[%.12g,%.12g,%.12g,%.12g]", out.empty() ? "" : ",",
                  static_cast<unsigned long long>(chunk.entity), chunk.box.min.x, chunk.box.min.y,
                  chunk.box.max.x, chunk.box.max.y);
    out += text;
  }
  return "{" + out + "}";
}

std::string contents(const Database& db) {
  // Those that only a DXF file holds are counted by themselves.
  std::map<std::string, int> entities, modelSpace, apps, blockSizes, dxfEntities, dxfModelSpace;
  db.forEach([&](const Object& o) {
    if (o.kind == Kind::GroupObject) return;
    if (o.kind == Kind::GroupEntity) {
      ++dxfEntities[nameOf(db, o)];
      return;
    }
    for (const XData& data : o.xdata) ++apps[std::string(db.recordName(data.app))];
    if (o.kind == Kind::BlockRecord) {
      const auto& block = static_cast<const BlockRecord&>(o);
      blockSizes[block.name] = static_cast<int>(block.count);
    }
    if (!isEntity(o.kind) || o.kind == Kind::Block || o.kind == Kind::EndBlock) return;
    ++entities[nameOf(db, o)];
  });
  for (const Entity* e = db.modelSpace().first; e; e = e->next) {
    ++(e->kind == Kind::GroupEntity ? dxfModelSpace : modelSpace)[nameOf(db, *e)];
  }
  return "{\"entities\":" + object(entities) + ",\"model_space\":" + object(modelSpace) +
         ",\"dxf_entities\":" + object(dxfEntities) +
         ",\"dxf_model_space\":" + object(dxfModelSpace) + ",\"blockSizes\":" + object(blockSizes) +
         ",\"xdata_apps\":" + object(apps) + ",\"layers\":" + names(db, Table::Layers) +
         ",\"blocks\":" + names(db, Table::Blocks) + ",\"styles\":" + names(db, Table::Styles) +
         ",\"ltypes\":" + names(db, Table::Linetypes) + ",\"appids\":" + names(db, Table::AppIds) +
         ",\"boxes\":" + boxes(db) + "}\n";
}

bool put(const Database& db, const std::filesystem::path& out, const std::string& name) {
  test::writeBytes(out / (name + ".json"), contents(db));
  for (const base::Status& status :
       {saveDwg(db, out / (name + ".dwg")), saveDxf(db, out / (name + ".dxf"))}) {
    if (status.ok()) continue;
    std::fprintf(stderr, "%s\n", status.message().c_str());
    return false;
  }
  return true;
}

// Many INSERTs of a block with extended data, some erased again, so that chains have gaps and the
// object map several chunks.
std::unique_ptr<Database> makeLargeDrawing() {
  auto db = makeSampleDrawing();
  const Handle app = db->registerApp("TKSY"), layer = db->findRecord(Table::Layers, "0");
  const std::string data = *encodeXData({{1000, "XHGG"}, {1070, 3}}, db->codePage);
  std::vector<Handle> all;
  for (int i = 0; i < 3000; ++i) {
    auto insert = std::make_unique<Insert>();
    insert->layer = layer;
    insert->block = db->findRecord(Table::Blocks, "断路器");
    insert->position = {i * 10.0, 0, 0};
    insert->xdata = {{app, data}};
    all.push_back(db->append(db->modelSpace(), std::move(insert)));
  }
  for (std::size_t i = 0; i < all.size(); i += 7) db->erase(all[i]);
  return db;
}

// As opened; and with the last entity erased, brought back and erased again, and a line added.
bool putReal(const std::filesystem::path& path, const std::filesystem::path& out) {
  ReadReport report;
  const bool isDwg = path.extension() == ".dwg";
  auto opened = isDwg ? openDwg(path, report) : openDxf(path, report);
  if (!opened.ok()) return false;
  Database& db = **opened;
  const std::string name = path.stem().string() + (isDwg ? "" : "-dxf");
  bool good = put(db, out, name + "-saved");
  if (const Handle last = db.lastEntity()) {
    db.journal().begin("ERASE");
    db.erase(last);
    db.journal().end();
    good = db.journal().undo() && good;
    good = put(db, out, name + "-undone") && good;
    db.erase(last);
  }
  auto line = std::make_unique<Line>();
  line->layer = db.findRecord(Table::Layers, "0");
  line->end = {10, 10, 0};
  db.append(db.modelSpace(), std::move(line));
  return put(db, out, name + "-worked") && good;
}

int run(const std::filesystem::path& out, const std::filesystem::path& data) {
  std::filesystem::create_directories(out);
  bool good = put(*Database::makeNew(), out, "new") && put(*makeSampleDrawing(), out, "kinds") &&
              put(*makeLargeDrawing(), out, "large");
  for (const auto& entry : std::filesystem::directory_iterator(data)) {
    const auto extension = entry.path().extension();
    if (extension == ".dwg" || extension == ".dxf") good = putReal(entry.path(), out) && good;
  }
  return good ? 0 : 1;
}

}  // namespace
}  // namespace drafting

int main(int count, char** words) {
  if (count != 3) return 2;
  return drafting::run(words[1], words[2]);
}
