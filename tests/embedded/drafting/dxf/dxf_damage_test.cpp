// Cut and damaged files: something is read or a message is given, and what was read is a drawing
// that can be written again.
#include <gtest/gtest.h>

#include <random>

#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "embedded/drafting/dxf/dxf_text.h"

namespace drafting {
namespace {

// Objects that a DWG holds too: those that don't belong to one which came as groups.
std::size_t heldByDwg(const Database& db) {
  std::size_t count = 0;
  db.forEach([&](const Object& object) {
    const Object* one = &object;
    const auto isCarried = [&] {
      return one && (one->kind == Kind::GroupEntity || one->kind == Kind::GroupObject);
    };
    for (int depth = 0; depth < 8 && one && !isCarried(); ++depth) one = db.find(one->owner);
    if (!isCarried()) ++count;
  });
  return count;
}

void expectSafe(const std::string& text) {
  std::istringstream in(text);
  ReadReport report;
  const auto read = readDxf(in, report);
  if (!read.ok()) {
    EXPECT_NE(read.message(), "");
    return;
  }
  const auto bytes = writeDwg(**read);
  ASSERT_TRUE(bytes.ok()) << bytes.message();
  ReadReport dwgReport;
  const auto again = readDwg(*bytes, dwgReport);
  ASSERT_TRUE(again.ok()) << again.message();
  EXPECT_EQ((*again)->objectCount(), heldByDwg(**read)) << dwgReport.summary();
  EXPECT_NE(dxfOf(**read), "");
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

TEST(DxfDamage, CutFilesAreReadAsFarAsTheyGo) {
  const std::string text = dxfOf(*makeSampleDrawing());
  for (std::size_t length = 0; length < text.size(); length += 331) {
    SCOPED_TRACE(length);
    expectSafe(text.substr(0, length));
  }
}

TEST(DxfDamage, ChangedBytesDoNoHarm) {
  const std::string text = dxfOf(*makeSampleDrawing());
  std::mt19937 random(1);
  for (int i = 0; i < 150; ++i) {
    std::string damaged = text;
    for (int n = 0; n < 5; ++n) damaged[random() % damaged.size()] = static_cast<char>(random());
    SCOPED_TRACE(i);
    expectSafe(damaged);
  }
}

TEST(DxfDamage, ExchangedAndDroppedLinesDoNoHarm) {
  const std::vector<std::string> lines = linesOf(dxfOf(*makeSampleDrawing()));
  std::mt19937 random(2);
  for (int i = 0; i < 150; ++i) {
    auto damaged = lines;
    for (int n = 0; n < 20; ++n) {
      // Whole groups, so that the file stays readable and its meaning breaks.
      const std::size_t a = random() % (lines.size() / 2) * 2,
                        b = random() % (lines.size() / 2) * 2;
      std::swap(damaged[a + 1], damaged[b + 1]);
      if (n % 4 == 0) std::swap(damaged[a], damaged[b]);
    }
    SCOPED_TRACE(i);
    expectSafe(joined(damaged));
  }
}

}  // namespace
}  // namespace drafting
