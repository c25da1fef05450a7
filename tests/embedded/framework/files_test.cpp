// CFile and CStdioFile on real files.
#include <gtest/gtest.h>

#include "embedded/base/paths.h"
#include "platform/framework.h"
#include "support/raises.h"
#include "support/temp_folder.h"

namespace {

class Files : public testing::Test {
 protected:
  std::wstring path(const char* name) const { return base::wideFromPath(folder_ / name); }
  test::TempFolder folder_;
};

TEST_F(Files, WritesReadsAndSeeks) {
  CFile file;
  ASSERT_TRUE(file.Open(path("a").c_str(), CFile::modeCreate | CFile::modeReadWrite));
  file.Write("hello", 5);
  EXPECT_EQ(file.GetLength(), 5u);
  EXPECT_EQ(file.Seek(1, CFile::begin), 1);
  char buffer[8] = {};
  EXPECT_EQ(file.Read(buffer, 3), 3u);
  EXPECT_STREQ(buffer, "ell");
  file.Write("P", 1);
  EXPECT_EQ(file.GetPosition(), 5u);
  EXPECT_EQ(file.Read(buffer, 8), 0u);
  file.Close();
  EXPECT_EQ(test::bytesOf(folder_ / "a"), "hellP");
}

TEST_F(Files, CreatingTruncatesUnlessToldNotTo) {
  test::writeBytes(folder_ / "a", "hello");
  CFile file;
  ASSERT_TRUE(file.Open(path("a").c_str(),
                        CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite));
  EXPECT_EQ(file.GetLength(), 5u);
  ASSERT_TRUE(file.Open(path("a").c_str(), CFile::modeCreate | CFile::modeWrite));
  EXPECT_EQ(file.GetLength(), 0u);
  ASSERT_TRUE(file.Open(path("new").c_str(),
                        CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite));
}

TEST_F(Files, OpeningWhatIsNotAFileFails) {
  CFile file;
  EXPECT_FALSE(file.Open(path("missing").c_str(), CFile::modeRead));
  EXPECT_FALSE(file.Open(path("missing").c_str(), CFile::modeReadWrite));
  EXPECT_FALSE(file.Open(path(".").c_str(), CFile::modeRead));
}

TEST_F(Files, UseWithoutOpeningRaises) {
  CFile file;
  char c = 0;
  test::expectRaised<CFileException>([&] { file.Read(&c, 1); });
  test::expectRaised<CFileException>([&] { file.Write(&c, 1); });
  test::expectRaised<CFileException>([&] { file.GetLength(); });
  test::expectRaised<CFileException>([&] { file.Seek(0, CFile::begin); });
  file.Close();
}

TEST_F(Files, WritingToAFileOpenForReadingRaises) {
  test::writeBytes(folder_ / "a", "hello");
  CFile file;
  ASSERT_TRUE(file.Open(path("a").c_str(), CFile::modeRead));
  test::expectRaised<CFileException>([&] {
    file.Write("x", 1);
    file.Flush();
  });
}

TEST_F(Files, StatusTellsSizeAndKind) {
  test::writeBytes(folder_ / "a", "hello");
  CFileStatus status;
  ASSERT_TRUE(CFile::GetStatus(path("a").c_str(), status));
  EXPECT_EQ(status.m_size, 5u);
  EXPECT_FALSE(status.m_directory);
  EXPECT_GT(status.m_mtime, 1'000'000'000);
  ASSERT_TRUE(CFile::GetStatus(path(".").c_str(), status));
  EXPECT_TRUE(status.m_directory);
  EXPECT_FALSE(CFile::GetStatus(path("missing").c_str(), status));
}

TEST_F(Files, RemoveAndRename) {
  test::writeBytes(folder_ / "a", "hello");
  CFile::Rename(path("a").c_str(), path("b").c_str());
  EXPECT_EQ(test::bytesOf(folder_ / "b"), "hello");
  CFile::Remove(path("b").c_str());
  test::expectRaised<CFileException>([&] { CFile::Remove(path("b").c_str()); });
  test::expectRaised<CFileException>([&] { CFile::Rename(path("b").c_str(), path("c").c_str()); });
}

TEST_F(Files, LinesAreAnsiText) {
  test::writeBytes(folder_ / "a", "one\r\n\xBF\xD5\nlast");
  CStdioFile file;
  ASSERT_TRUE(file.Open(path("a").c_str(), CFile::modeRead));
  CString line;
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, L"one");
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, L"空");
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, L"last");
  EXPECT_FALSE(file.ReadString(line));
}

TEST_F(Files, WrittenLinesEndWithBothCharacters) {
  CStdioFile file;
  ASSERT_TRUE(file.Open(path("a").c_str(), CFile::modeCreate | CFile::modeWrite));
  file.WriteString(L"空\n");
  file.Close();
  EXPECT_EQ(test::bytesOf(folder_ / "a"), "\xBF\xD5\r\n");
}

TEST(Modules, RecordIsFilledAndForgotten) {
  AFX_EXTENSION_MODULE record;
  const auto instance = reinterpret_cast<HINSTANCE>(&record);
  EXPECT_TRUE(AfxInitExtensionModule(record, instance));
  EXPECT_TRUE(record.bInitialized);
  const auto* library = new CDynLinkLibrary(record, false);
  EXPECT_EQ(library->resources(), instance);
  AfxTermExtensionModule(record, false);
  EXPECT_FALSE(record.bInitialized);
}

}  // namespace
