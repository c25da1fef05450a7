// Drawings of other programs (tests/data/dwg): read without complaint, with what independent
// readers found in them, and saved without losing anything.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>

#include "embedded/base/files.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

std::filesystem::path folder() { return std::filesystem::path(VORNIK_TEST_DATA) / "dwg"; }

std::vector<std::string> drawings() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder())) {
    if (entry.path().extension() == ".dwg") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// The dimension and polyline kinds share a name in DXF, and the reader has none for the table.
std::string commonName(std::string name) {
  for (const char* family : {"DIMENSION", "POLYLINE", "VERTEX"}) {
    if (name.rfind(family, 0) == 0) return family;
  }
  return name == "UNKNOWN_ENT" ? "ACAD_TABLE" : name;
}

// "KEY": number pairs of one member of one reader's part of a counts file.
std::map<std::string, int> countsOf(const std::string& json, const std::string& reader,
                                    const std::string& member) {
  std::map<std::string, int> counts;
  const std::size_t part = json.find("\"reader\": \"" + reader + "\"");
  if (part == std::string::npos) return counts;
  const std::size_t next = json.find("\"reader\"", part + 8);
  const std::size_t at = json.find("\"" + member + "\": {", part);
  if (at == std::string::npos || at > next) return counts;
  const std::string body = json.substr(at, json.find('}', at) - at);
  const std::regex pair("\"([^\"]+)\": (\\d+)");
  for (std::sregex_iterator it(body.begin(), body.end(), pair), end; it != end; ++it) {
    counts[commonName((*it)[1])] += std::stoi((*it)[2]);
  }
  return counts;
}

class RealDrawing : public ::testing::TestWithParam<std::string> {
 protected:
  std::unique_ptr<Database> open() {
    ReadReport report;
    auto opened = openDwg(folder() / (GetParam() + ".dwg"), report);
    EXPECT_TRUE(opened.ok()) << opened.message();
    EXPECT_EQ(report.summary(), "");
    return opened.ok() ? std::move(*opened) : nullptr;
  }
  std::string json() { return test::bytesOf(folder() / (GetParam() + ".dwg.json")); }
};

TEST_P(RealDrawing, HoldsWhatIndependentReadersFind) {
  const auto db = open();
  ASSERT_NE(db, nullptr);
  std::map<std::string, int> entities, modelSpace, apps;
  db->forEach([&](const Object& object) {
    for (const XData& data : object.xdata) ++apps[std::string(db->recordName(data.app))];
    if (!isEntity(object.kind) || object.kind == Kind::Block || object.kind == Kind::EndBlock)
      return;
    ++entities[std::string(typeName(*db, object))];
  });
  for (const Entity* e = db->modelSpace().first; e; e = e->next) {
    ++modelSpace[std::string(typeName(*db, *e))];
  }
  const std::string counts = json();
  const auto expected = countsOf(counts, "dwgread", "entities");
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(entities, expected);
  EXPECT_EQ(modelSpace, countsOf(counts, "dwgread", "model_space"));
  EXPECT_EQ(apps, countsOf(counts, "dwgread", "xdata_apps"));
}

TEST_P(RealDrawing, IsSavedWithoutLosingAnything) {
  const auto db = open();
  ASSERT_NE(db, nullptr);
  const auto again = reread(*db);
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(expectSameDrawing(*db, *again));
}

TEST_P(RealDrawing, IsWorkedOnAndSaved) {
  const auto db = open();
  ASSERT_NE(db, nullptr);
  std::vector<Handle> handles;
  for (const Entity* e = db->modelSpace().first; e; e = e->next) handles.push_back(e->handle);
  db->journal().begin("ERASE");
  for (std::size_t i = 0; i < handles.size(); i += 2) db->erase(handles[i]);
  db->journal().end();
  const auto erased = reread(*db);
  ASSERT_NE(erased, nullptr);
  EXPECT_EQ(erased->modelSpace().count, handles.size() / 2);
  EXPECT_TRUE(expectSameDrawing(*db, *erased));

  ASSERT_TRUE(db->journal().undo());
  EXPECT_TRUE(expectSameDrawing(*open(), *db));
  auto line = std::make_unique<Line>();
  line->layer = db->findRecord(Table::Layers, "0");
  line->end = {100, 100, 0};
  const Handle added = db->append(db->modelSpace(), std::move(line));
  const auto grown = reread(*db);
  ASSERT_NE(grown, nullptr);
  EXPECT_EQ(grown->lastEntity(), added);
  EXPECT_EQ(grown->modelSpace().count, handles.size() + 1);
  EXPECT_TRUE(expectSameDrawing(*db, *grown));
}

INSTANTIATE_TEST_SUITE_P(Files, RealDrawing, ::testing::ValuesIn(drawings()), [](const auto& info) {
  std::string name = info.param;
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return "D" + name;
});

}  // namespace
}  // namespace drafting
