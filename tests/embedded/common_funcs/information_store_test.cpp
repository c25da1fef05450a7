// The information store and its file.
#include <gtest/gtest.h>

#include "embedded/base/files.h"
#include "embedded/common_funcs/information_file.h"
#include "support/install.h"
#include "support/transcript.h"

namespace {

namespace fs = std::filesystem;

class InformationStore : public testing::Test {
 protected:
  InformationStore() {
    test::setVariable("VORNIK_INFORMATION", path_);
    test::takeTranscript();
  }
  ~InformationStore() override { base::setSaveHook(nullptr); }

  std::wstring get(const wchar_t* section, const wchar_t* name) {
    wchar_t buffer[kInformationLimit];
    result_ = GetInformation(section, name, L"default", buffer, 1);
    return buffer;
  }
  static int put(const wchar_t* section, const wchar_t* name, const wchar_t* text) {
    return WriteInformation(section, name, text, 1);
  }

  test::TempFolder folder_;
  fs::path path_ = folder_ / "deep" / "information.txt";
  int result_ = -1;
};

TEST_F(InformationStore, MissingValueIsTheDefault) {
  EXPECT_EQ(get(L"ZEMMain", L"ZemSys"), L"default");
  EXPECT_GT(result_, 0);
}

TEST_F(InformationStore, KeepsValues) {
  EXPECT_GT(put(L"ZEMMain", L"ZemSys", L"C:\\主回路 库"), 0);
  EXPECT_EQ(get(L"ZEMMain", L"ZemSys"), L"C:\\主回路 库");
  EXPECT_EQ(test::bytesOf(path_), "[ZEMMain]\nZemSys=C:\\主回路 库\n");
}

TEST_F(InformationStore, NamesIgnoreCase) {
  put(L"Dwglib", L"Dwgdir", L"x");
  EXPECT_EQ(get(L"DWGLIB", L"DwgDir"), L"x");
  put(L"dwglib", L"DWGDIR", L"y");
  EXPECT_EQ(get(L"Dwglib", L"Dwgdir"), L"y");
}

TEST_F(InformationStore, EmptyValueIsAValue) {
  put(L"a", L"b", L"");
  EXPECT_EQ(get(L"a", L"b"), L"");
}

TEST_F(InformationStore, OddCharactersSurvive) {
  put(L"a", L"b", L" 100%\n[x]=\t");
  EXPECT_EQ(get(L"a", L"b"), L" 100%\n[x]=\t");
}

TEST_F(InformationStore, LongValuesAreCutToTheBuffer) {
  put(L"a", L"b", std::wstring(5000, L'x').c_str());
  EXPECT_EQ(get(L"a", L"b"), std::wstring(kInformationLimit - 1, L'x'));
}

TEST_F(InformationStore, SeesChangesFromOutside) {
  put(L"a", L"b", L"1");
  test::writeBytes(path_, "# by hand\r\n[A]\r\nB = two words\r\n");
  EXPECT_EQ(get(L"a", L"b"), L" two words");
}

TEST_F(InformationStore, LinesOfOthersStay) {
  put(L"a", L"b", L"1");
  test::writeBytes(path_, "# comment\nstray line\n[a]\nb=1\n\n[c]\nd=2\n");
  put(L"a", L"new", L"3");
  put(L"c", L"d", L"4");
  EXPECT_EQ(test::bytesOf(path_), "# comment\nstray line\n[a]\nb=1\nnew=3\n\n[c]\nd=4\n");
}

TEST_F(InformationStore, CommentIsNoValue) {
  fs::create_directories(path_.parent_path());
  test::writeBytes(path_, "[a]\n#b=1\n");
  EXPECT_EQ(get(L"a", L"#b"), L"default");
}

TEST_F(InformationStore, SameValueIsNotWrittenAgain) {
  put(L"a", L"b", L"1");
  const auto before = fs::last_write_time(path_);
  EXPECT_GT(put(L"a", L"b", L"1"), 0);
  EXPECT_EQ(fs::last_write_time(path_), before);
}

TEST_F(InformationStore, UnreadableFileGivesDefaultAndZero) {
  fs::create_directories(path_.parent_path());
  test::writeBytes(path_, "\xFF\xFE");
  EXPECT_EQ(get(L"a", L"b"), L"default");
  EXPECT_EQ(result_, 0);
}

TEST_F(InformationStore, UnreadableFileIsMovedAsideAtTheFirstWrite) {
  fs::create_directories(path_.parent_path());
  test::writeBytes(path_, "\xFF\xFE");
  EXPECT_GT(put(L"a", L"b", L"1"), 0);
  EXPECT_NE(test::takeTranscript().find(L"information.txt.damaged-1"), std::wstring::npos);
  EXPECT_EQ(test::bytesOf(folder_ / "deep" / "information.txt.damaged-1"), "\xFF\xFE");
  EXPECT_EQ(get(L"a", L"b"), L"1");
}

TEST_F(InformationStore, FailedWriteKeepsTheOldValue) {
  put(L"a", L"b", L"1");
  base::setSaveHook([](base::SaveStep) { return base::Status::failure("disk full"); });
  EXPECT_EQ(put(L"a", L"b", L"2"), 0);
  base::setSaveHook(nullptr);
  EXPECT_EQ(get(L"a", L"b"), L"1");
}

TEST_F(InformationStore, StoresFollowTheVariable) {
  put(L"a", L"b", L"1");
  test::setVariable("VORNIK_INFORMATION", folder_ / "other.txt");
  EXPECT_EQ(get(L"a", L"b"), L"default");
}

TEST(InformationFile, SkipsAByteOrderMark) {
  common_funcs::InformationFile file;
  ASSERT_TRUE(file.parse("\xEF\xBB\xBF[a]\nb=1").ok());
  EXPECT_EQ(file.get(L"a", L"b"), L"1");
}

TEST(InformationFile, ContinuesASectionThatAppearsTwice) {
  common_funcs::InformationFile file;
  ASSERT_TRUE(file.parse("[a]\nb=1\n[c]\n[a]\nd=2\n").ok());
  EXPECT_EQ(file.get(L"a", L"b"), L"1");
  EXPECT_EQ(file.get(L"a", L"d"), L"2");
}

}  // namespace
