// The fonts of an install, their licences, and the characters that are drawn with them.
#include "samples/generator/fonts.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <array>
#include <fstream>
#include <set>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/base/utf8.h"
#include "embedded/drafting/display/text_layout.h"
#include "embedded/drafting/fonts/built_in_font.h"
#include "embedded/drafting/fonts/font_library.h"
#include "support/temp_folder.h"

namespace samples {
namespace {

namespace fs = std::filesystem;

class InstalledFonts : public ::testing::Test {
 protected:
  InstalledFonts() {
    const base::Status status = installFonts(folder.path());
    EXPECT_TRUE(status.ok()) << status.message();
  }
  std::string bytesOf(const char* name) const {
    const auto bytes = base::readFile(folder / name);
    EXPECT_TRUE(bytes.ok()) << bytes.message();
    return bytes.ok() ? *bytes : std::string();
  }
  test::TempFolder folder;
};

std::string unpacked(const fs::path& path) {
  std::string text(1 << 16, '\0');
  const gzFile file = gzopen(base::utf8FromPath(path).c_str(), "rb");
  if (!file) return {};
  const int size = gzread(file, text.data(), static_cast<unsigned>(text.size()));
  gzclose(file);
  text.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return text;
}

TEST_F(InstalledFonts, LicenceIsUnaltered) {
  const std::string kept = unpacked(fs::path(VORNIK_SOURCE_DIR) / "src" / "embedded" / "drafting" /
                                    "fonts" / "glyphs" / "ARPHICPL.TXT.gz");
  ASSERT_NE(kept.find("ARPHIC PUBLIC LICENSE"), std::string::npos);
  EXPECT_EQ(bytesOf("ARPHICPL.TXT"), kept);
}

TEST_F(InstalledFonts, NoticeTellsOriginAndChanges) {
  const std::string notice = bytesOf("fonts.txt");
  for (const char* phrase : {"Dr. A. V. Hershey", "James Hurt, Cognition", "Copyright (C) 1999",
                             "Changed on 2026-11-21", "Arphic Public License"}) {
    EXPECT_NE(notice.find(phrase), std::string::npos) << phrase;
  }
}

TEST_F(InstalledFonts, DrawWhatTheBuiltInOnesDraw) {
  EXPECT_EQ(bytesOf("english.wzk"), drafting::builtInLatinFile());
  EXPECT_EQ(bytesOf("chinese.wzk"), drafting::builtInBigFontFile());
  drafting::FontLibrary library;
  std::vector<std::string> notes;
  const auto font = library.ofFiles(folder / "english.wzk", folder / "chinese.wzk", &notes);
  ASSERT_TRUE(font.latin && font.big && notes.empty());
  const char* text = "QF1 630A 变压器 %%c10 ±5%";
  EXPECT_EQ(drafting::layOutLine(text, font).strokes, drafting::layOutLine(text).strokes);
}

// All that the program can say, and what the sample library says: the literals of the sources.
TEST(CharactersOfTheProgram, AreInTheFonts) {
  std::set<char32_t> used;
  for (const char* root : {"src", "samples"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(VORNIK_SOURCE_DIR) / root)) {
      const fs::path extension = entry.path().extension();
      if (!entry.is_regular_file() || extension == ".inc" || extension == ".gz") continue;
      const auto text = base::readFile(entry.path());
      if (!text.ok() || !base::isUtf8(*text)) continue;
      for (std::size_t at = 0; at < text->size();) {
        const base::Decoded decoded = base::decodeUtf8(*text, at);
        at += decoded.length;
        if (decoded.character >= 0x20) used.insert(decoded.character);
      }
    }
  }
  EXPECT_GT(used.size(), 300u);
  for (const char32_t c : used) {
    EXPECT_TRUE(drafting::hasGlyph(c)) << std::hex << static_cast<unsigned>(c);
  }
}

}  // namespace
}  // namespace samples
