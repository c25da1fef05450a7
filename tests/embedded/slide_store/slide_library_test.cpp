// The slide library's format: exact bytes, reading of others' files, damage.
#include "embedded/slide_store/slide_library.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using slide_store::foldName;
using slide_store::SlideLibrary;
using Names = std::vector<std::string>;

const std::string kTitle = "AutoCAD Slide Library 1.0";

std::string low(std::uint32_t value) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i));
  return bytes;
}

std::string header() { return kTitle + std::string("\x0D\x0A\x1A\0\0\0\0", 7); }

std::string record(std::string name, std::uint32_t offset) {
  name.resize(32, '\0');
  return name + low(offset);
}

const std::string kEnd(36, '\0');

SlideLibrary parsed(const std::string& bytes) {
  SlideLibrary library;
  EXPECT_TRUE(library.parse(bytes).ok());
  return library;
}

std::string slideOf(const SlideLibrary& library, const std::string& name) {
  const std::string_view* slide = library.find(name);
  return slide ? std::string(*slide) : "(none)";
}

TEST(SlideLibrary, WritesThePublishedBytes) {
  SlideLibrary library;
  library.add("TWO", "second slide");
  library.add("\xD6\xF7&05", "x");
  EXPECT_EQ(*library.serialise(), header() + record("TWO", 140) + record("\xD6\xF7&05", 152) +
                                      kEnd + "second slide" + "x");
}

TEST(SlideLibrary, EmptyLibraryHas68Bytes) {
  EXPECT_EQ(*SlideLibrary().serialise(), header() + kEnd);
}

TEST(SlideLibrary, ReadsWhatItWrites) {
  SlideLibrary library;
  for (int i = 0; i < 100; ++i) {
    library.add("S" + std::to_string(i), std::string(static_cast<std::size_t>(i + 1), 'x'));
  }
  const std::string bytes = *library.serialise();
  const SlideLibrary again = parsed(bytes);
  EXPECT_EQ(again.names(), library.names());
  EXPECT_EQ(slideOf(again, "S99"), std::string(100, 'x'));
  EXPECT_EQ(*again.serialise(), bytes);
}

TEST(SlideLibrary, TakesAnyBytesBehindTheTitle) {
  EXPECT_EQ(parsed(kTitle + std::string("\x0B\x08\x16\0\0\0\0", 7) + kEnd).size(), 0u);
  EXPECT_EQ(parsed(kTitle + "abcdefg" + kEnd).size(), 0u);
}

TEST(SlideLibrary, RefusesWhatIsNoLibrary) {
  SlideLibrary library;
  for (const std::string& bytes : {std::string(), std::string(100, 'x'), kTitle}) {
    const base::Status status = library.parse(bytes);
    EXPECT_FALSE(status.ok());
    EXPECT_NE(status.message().find("byte 0"), std::string::npos);
    EXPECT_EQ(library.size(), 0u);
  }
}

TEST(SlideLibrary, SizesFollowFromTheNextLargerOffset) {
  // Slides in another order than the directory, and two names for one slide.
  const std::string bytes =
      header() + record("B", 180) + record("A", 176) + record("C", 180) + kEnd + "aaaa" + "bb";
  const SlideLibrary library = parsed(bytes);
  EXPECT_EQ(slideOf(library, "A"), "aaaa");
  EXPECT_EQ(slideOf(library, "B"), "bb");
  EXPECT_EQ(slideOf(library, "C"), "bb");
  EXPECT_EQ(library.serialise()->size(), bytes.size());  // the shared slide stays shared
}

TEST(SlideLibrary, NamesIgnoreTheCaseOfSingleByteLetters) {
  SlideLibrary library;
  library.add("Two", "x");
  EXPECT_EQ(slideOf(library, "tWO"), "x");
  library.add("TWO", "y");
  EXPECT_EQ(library.size(), 1u);
  EXPECT_EQ(slideOf(library, "two"), "y");
  EXPECT_EQ(foldName("\xB0\x61"
                     "a"),
            "\xB0\x61"
            "A");  // the second byte is no letter
}

TEST(SlideLibrary, RefusesNamesThatDoNotFit) {
  SlideLibrary library;
  EXPECT_TRUE(library.add(std::string(31, 'n'), "x"));
  EXPECT_FALSE(library.add(std::string(32, 'n'), "x"));
  EXPECT_FALSE(library.add("", "x"));
  EXPECT_FALSE(library.add("n", ""));
}

TEST(SlideLibrary, Removes) {
  SlideLibrary library;
  library.add("A", "x");
  EXPECT_TRUE(library.remove("a"));
  EXPECT_FALSE(library.remove("a"));
  EXPECT_EQ(library.size(), 0u);
}

TEST(SlideLibrary, DamagedRecordsCostThemselvesOnly) {
  const std::string bytes =
      header() + record("A", 9999) + record("B", 176) + record("C", 3) + kEnd + "slide";
  const SlideLibrary library = parsed(bytes);
  EXPECT_EQ(library.names(), Names{"B"});
  EXPECT_EQ(slideOf(library, "B"), "slide");
}

TEST(SlideLibrary, DirectoryWithoutEndRecordEndsAtTheFirstSlide) {
  const SlideLibrary library = parsed(header() + record("A", 68) + "slide" + std::string(60, 'z'));
  EXPECT_EQ(library.names(), Names{"A"});
}

TEST(SlideLibrary, SurvivesTruncationAtEachLength) {
  SlideLibrary library;
  library.add("A", "first");
  library.add("B", "second");
  const std::string bytes = *library.serialise();
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    SlideLibrary cut;
    const bool ok = cut.parse(bytes.substr(0, length)).ok();
    EXPECT_EQ(ok, length >= 32) << length;
    for (const std::string& name : cut.names()) EXPECT_LE(slideOf(cut, name).size(), length);
  }
}

TEST(SlideLibrary, SurvivesDamagedBytes) {
  SlideLibrary library;
  library.add("A", "first");
  library.add("B", "second");
  const std::string bytes = *library.serialise();
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    std::string damaged = bytes;
    for (int i = 0; i < 3; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
    SlideLibrary read;
    if (!read.parse(damaged).ok()) continue;
    EXPECT_LE(read.serialise()->size(), damaged.size() + 36);
  }
}

}  // namespace
