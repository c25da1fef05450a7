// Where the fonts that styles name are found, and what takes their place.
#include "embedded/drafting/fonts/font_library.h"

#include "embedded/base/paths.h"
#include "embedded/drafting/fonts/font_fixture.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

class FontFolders : public ::testing::Test {
 protected:
  FontFolders() {
    std::filesystem::create_directories(install);
    std::filesystem::create_directories(drawing);
    library.setFolders({install});
  }
  std::string pathOf(const std::filesystem::path& path) const { return base::utf8FromPath(path); }
  TextFont find(std::string_view font, std::string_view bigFont = "") {
    notes.clear();
    return library.find(font, bigFont, drawing, &notes);
  }

  test::TempFolder folder;
  std::filesystem::path install = folder / "install", drawing = folder / "drawing";
  FontLibrary library;
  std::vector<std::string> notes;
};

TEST_F(FontFolders, NamesGoWithoutCaseAndExtension) {
  test::writeBytes(install / "RomanS.SHX", tinyShapes());
  for (const char* name : {"romans", "ROMANS.shx", "RomanS.SHX", "romans.wzk",
                           "C:\\fonts\\romans.shx", "fonts/romans"}) {
    EXPECT_NE(find(name).latin, nullptr) << name;
    EXPECT_TRUE(notes.empty()) << name;
  }
}

TEST_F(FontFolders, RenamedExtensionIsFound) {
  test::writeBytes(install / "hz.wzk", tinyBigFont());
  EXPECT_NE(find("txt", "HZ").big, nullptr);
  EXPECT_NE(find("txt", "hz.shx").big, nullptr);
}

TEST_F(FontFolders, FolderOfTheDrawingGoesFirst) {
  test::writeBytes(install / "a.shx", tinyShapes());
  test::writeBytes(drawing / "a.shx", tinyUnifont());
  EXPECT_EQ(find("a").latin->kind(), FontKind::Unifont);
  EXPECT_EQ(library.find("a", "").latin->kind(), FontKind::Shapes);
}

TEST_F(FontFolders, UsualNamesAreTheBuiltInFontsWithoutAWord) {
  const TextFont font = find("txt.shx", "GBCBIG");
  EXPECT_EQ(font.latin, nullptr);
  EXPECT_EQ(font.big, nullptr);
  find("english.wzk", "chinese.wzk");
  find("");
  EXPECT_TRUE(notes.empty());
}

TEST_F(FontFolders, FileOfAUsualNameCounts) {
  test::writeBytes(install / "txt.shx", tinyShapes());
  EXPECT_NE(find("txt").latin, nullptr);
}

TEST_F(FontFolders, MissingFontIsTold) {
  EXPECT_EQ(find("nowhere.shx", "hztxt").latin, nullptr);
  EXPECT_EQ(notes, (std::vector<std::string>{
                       "the font nowhere.shx isn't there; the built-in one is taken instead",
                       "the font hztxt isn't there; the built-in one is taken instead"}));
}

TEST_F(FontFolders, FileThatIsNoFontIsTold) {
  test::writeBytes(install / "bad.shx", "nothing of the kind");
  EXPECT_EQ(find("bad").latin, nullptr);
  const std::string file = pathOf(install / "bad.shx");
  EXPECT_EQ(notes, (std::vector<std::string>{file + ": byte 0: is no compiled shape font",
                                             file + ": the built-in font is taken instead"}));
}

TEST_F(FontFolders, CollectionOfShapesIsNoFontOfCharacters) {
  FontParts parts;
  parts.kind = FontKind::Shapes;
  parts.shapes[130] = {"BOX", bytesOf("14 00")};
  test::writeBytes(install / "ltypeshp.shx", *writeFont(parts));
  EXPECT_EQ(find("ltypeshp").latin, nullptr);
  EXPECT_EQ(notes[0], pathOf(install / "ltypeshp.shx") + ": is no font of characters");
}

TEST_F(FontFolders, KindsInEachOthersPlaceAreTold) {
  test::writeBytes(install / "big.shx", tinyBigFont());
  test::writeBytes(install / "small.shx", tinyUnifont());
  const TextFont font = find("big", "small");
  EXPECT_EQ(font.latin, nullptr);
  EXPECT_EQ(font.big, nullptr);
  EXPECT_EQ(notes[0], pathOf(install / "big.shx") + ": is a big font");
  EXPECT_EQ(notes[2], pathOf(install / "small.shx") + ": is no big font");
}

TEST_F(FontFolders, DamageWithinAFontIsTold) {
  std::string bytes = tinyShapes();
  bytes[36] = 0;
  test::writeBytes(install / "a.shx", bytes);
  EXPECT_NE(find("a").latin, nullptr);
  ASSERT_EQ(notes.size(), 1u);
  EXPECT_NE(notes[0].find("shape 10 has no bytes"), std::string::npos);
}

TEST_F(FontFolders, FileIsReadOnceAndAgainWhenItChanges) {
  test::writeBytes(install / "a.shx", tinyShapes());
  const auto first = find("a").latin;
  EXPECT_EQ(find("a").latin, first);
  test::writeBytes(install / "a.shx", tinyUnifont());
  EXPECT_EQ(find("a").latin->kind(), FontKind::Unifont);
  EXPECT_EQ(first->kind(), FontKind::Shapes);  // whoever holds it keeps it
}

TEST_F(FontFolders, TwoFilesAsAPair) {
  test::writeBytes(folder / "english.wzk", tinyUnifont());
  test::writeBytes(folder / "chinese.wzk", tinyBigFont());
  const TextFont font = library.ofFiles(folder / "english.wzk", folder / "chinese.wzk", &notes);
  EXPECT_NE(font.latin, nullptr);
  EXPECT_NE(font.big, nullptr);
  EXPECT_EQ(library.ofFiles({}, folder / "chinese.wzk", &notes).latin, nullptr);
  EXPECT_TRUE(notes.empty());
  EXPECT_EQ(library.ofFiles(folder / "none.wzk", folder / "chinese.wzk", &notes).latin, nullptr);
  EXPECT_FALSE(notes.empty());
}

}  // namespace
}  // namespace drafting
