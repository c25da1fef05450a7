// Files of other programs (tests/data/dwg): DXF read with what an independent reader found in it,
// DWG carried over to DXF and back.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>

#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "embedded/drafting/dxf/dxf_text.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

using Counts = std::map<std::string, int>;

std::filesystem::path folder() { return std::filesystem::path(VORNIK_TEST_DATA) / "dwg"; }

std::vector<std::string> files(const char* extension) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder())) {
    if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

Counts entitiesOf(const Database& db) {
  Counts counts;
  db.forEach([&](const Object& object) {
    const bool counted = isEntity(object.kind) && object.kind != Kind::Block &&
                         object.kind != Kind::EndBlock && object.kind != Kind::SeqEnd;
    if (counted && object.kind != Kind::RawEntity) ++counts[std::string(typeName(db, object))];
  });
  return counts;
}

// What the first reader of a counts file found.
Counts expectedEntities(const std::string& json) {
  Counts counts;
  const std::size_t at = json.find("\"entities\": {");
  const std::string body = json.substr(at, json.find('}', at) - at);
  const std::regex pair("\"([^\"]+)\": (\\d+)");
  for (std::sregex_iterator it(body.begin(), body.end(), pair), end; it != end; ++it) {
    const std::string name = (*it)[1];
    counts[name] = std::stoi((*it)[2]);
  }
  return counts;
}

std::string testName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
  return "D" + name;
}

class RealDxf : public ::testing::TestWithParam<std::string> {};

TEST_P(RealDxf, HoldsWhatAnIndependentReaderFinds) {
  ReadReport report;
  const auto read = openDxf(folder() / (GetParam() + ".dxf"), report);
  ASSERT_TRUE(read.ok()) << read.message();
  const Counts expected = expectedEntities(test::bytesOf(folder() / (GetParam() + ".dxf.json")));
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(entitiesOf(**read), expected);
  const Database& db = **read;
  std::string notes;
  const auto again = drawingOf(dxfOf(db), &notes);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(notes, "");
  EXPECT_EQ(dxfLosses(db), "");
  const std::string text = dxfOf(db), secondTime = dxfOf(*again);
  EXPECT_EQ(text.substr(text.find("ENTITIES")), secondTime.substr(secondTime.find("ENTITIES")));
  EXPECT_EQ(entitiesOf(db), entitiesOf(*again));
}

// Through DWG it comes back but for what was said to be lost.
TEST_P(RealDxf, GoesThroughDwgWithAllThatCanGoThere) {
  ReadReport report;
  const auto read = openDxf(folder() / (GetParam() + ".dxf"), report);
  ASSERT_TRUE(read.ok()) << read.message();
  const Database& db = **read;
  Counts lost;
  db.forEach([&](const Object& object) {
    const bool isCarried = object.kind == Kind::GroupEntity || object.kind == Kind::GroupObject;
    if (isCarried) ++lost[std::string(typeName(db, object))];
  });
  EXPECT_EQ(dwgLosses(db), countedNames(lost));
  const auto again = reread(db);
  ASSERT_NE(again, nullptr);
  Counts expected = entitiesOf(db);
  for (const auto& [name, count] : lost) expected.erase(name);
  EXPECT_EQ(entitiesOf(*again), expected);
  if (lost.empty()) {
    EXPECT_TRUE(expectSameDrawing(db, *again));
  }
}

INSTANTIATE_TEST_SUITE_P(Files, RealDxf, ::testing::ValuesIn(files(".dxf")), testName);

class RealDwg : public ::testing::TestWithParam<std::string> {};

TEST_P(RealDwg, GoesThroughDxfWithItsEntities) {
  ReadReport report;
  const auto opened = openDwg(folder() / (GetParam() + ".dwg"), report);
  ASSERT_TRUE(opened.ok()) << opened.message();
  const std::string text = dxfOf(**opened);
  std::string notes;
  const auto again = drawingOf(text, &notes);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(notes, "");
  EXPECT_EQ(entitiesOf(**opened), entitiesOf(*again));
  EXPECT_EQ(dxfLosses(*again), "");
  std::string secondTime = dxfOf(*again);
  EXPECT_EQ(text.substr(text.find("ENTITIES")), secondTime.substr(secondTime.find("ENTITIES")));
}

INSTANTIATE_TEST_SUITE_P(Files, RealDwg, ::testing::ValuesIn(files(".dwg")), testName);

}  // namespace
}  // namespace drafting
