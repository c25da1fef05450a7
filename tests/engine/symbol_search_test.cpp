// Symbol names, directory files and index files.
#include "engine/symbol_search.h"

#include <gtest/gtest.h>

#include "platform/common_funcs.h"
#include "support/install.h"
#include "support/recording_host.h"
#include "support/transcript.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

using test::takeTranscript;

const wchar_t* const kIllegal = L"\n输入的文件名非法!";
const wchar_t* const kWrongType = L"\n文件类型参数必须为\"DWG\"或\"SLD\"中的一种!";

TEST(CheckFileName, TakesNamesOfEightAndTwelve) {
  EXPECT_EQ(CheckFileName(100, "abcdefgh"), 1);
  EXPECT_EQ(CheckFileName(100, "abcdefgh.dwg"), 1);
  EXPECT_EQ(CheckFileName(500, "abcdefgh.SLD"), 1);
  EXPECT_EQ(CheckFileName(100, ""), 1);
  EXPECT_EQ(takeTranscript(), L"");
}

TEST(CheckFileName, RefusesWithAMessage) {
  for (const char* name : {"abcdefghi", "abcdefghi.dwg", "abc.dwgx", "abc.dw", "abc.", "a.b", "a b",
                           "a/b", "a\\b", "a:b", "a.dwg.dwg", "abc.sld"}) {
    EXPECT_EQ(CheckFileName(100, name), 0) << name;
    EXPECT_EQ(takeTranscript(), kIllegal) << name;
  }
  EXPECT_EQ(CheckFileName(500, "a.b"), 0);
  EXPECT_EQ(takeTranscript(), kIllegal);
}

TEST(CheckFileName, CountsBytesOfTheCodePage) {
  EXPECT_EQ(CheckFileName(100, "\xD6\xF7\xBB\xD8\xC2\xB7\xBF\xE2"), 1);  // four characters
  EXPECT_EQ(CheckFileName(100,
                          "\xD6\xF7\xBB\xD8\xC2\xB7\xBF\xE2"
                          "1"),
            0);
  takeTranscript();
}

TEST(CheckFileName, KnowsTwoKinds) {
  EXPECT_EQ(CheckFileName(101, "abc"), 0);
  EXPECT_EQ(takeTranscript(), kWrongType);
}

class SymbolSearch : public testing::Test {
 protected:
  SymbolSearch() {
    test::resetHost();
    write("dwgdir.dab", "A01     0001B12     0002ab      0003");
    write("slddir.dab", "A01     0009");
    takeTranscript();
  }
  void write(const char* name, std::string_view bytes) {
    test::writeBytes(install_.symbols() / name, bytes);
  }
  std::wstring found(const wchar_t* name, const wchar_t* type = L"DWG") {
    std::wstring path = L"left over";
    result_ = SearchSymbolFile(type, name, path);
    const std::wstring folder = test::Install::wide(install_.symbols()) + L"\\";
    return path.starts_with(folder) ? path.substr(folder.size()) : path;
  }
  // The search must fail, leave the path empty, and say this.
  void expectFailure(const wchar_t* name, const std::wstring& message) {
    EXPECT_EQ(found(name), L"");
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(takeTranscript(), message);
  }

  test::Install install_;
  int result_ = -1;
};

TEST_F(SymbolSearch, FindsADrawing) {
  EXPECT_EQ(found(L"B12"), L"Dqbl0002\\B12.dwg");
  EXPECT_EQ(result_, 1);
  EXPECT_EQ(takeTranscript(), L"");
}

TEST_F(SymbolSearch, IgnoresCaseAndKeepsTheCallers) {
  EXPECT_EQ(found(L"AB"), L"Dqbl0003\\AB.dwg");
  EXPECT_EQ(found(L"AB.DWG"), L"Dqbl0003\\AB.DWG");
}

TEST_F(SymbolSearch, SlideNamesGetNoExtension) {
  EXPECT_EQ(found(L"A01", L"sld"), L"Dqbl0009\\A01");
  EXPECT_EQ(found(L"A01.sld", L"Sld"), L"Dqbl0009\\A01.sld");
}

TEST_F(SymbolSearch, CodeEndsAtItsFirstBlank) {
  write("dwgdir.dab", "A01     12  ");
  EXPECT_EQ(found(L"A01"), L"Dqbl12\\A01.dwg");
}

TEST_F(SymbolSearch, FirstRecordWins) {
  write("dwgdir.dab", "A01     0005A01     0006");
  EXPECT_EQ(found(L"A01"), L"Dqbl0005\\A01.dwg");
}

TEST_F(SymbolSearch, FindsChineseNames) {
  write("dwgdir.dab", "\xD6\xF7\xBB\xD8    0007");
  EXPECT_EQ(found(L"主回"), L"Dqbl0007\\主回.dwg");
}

TEST_F(SymbolSearch, UnknownNameGivesNoMessage) { expectFailure(L"C99", L""); }

TEST_F(SymbolSearch, RecordCutAtTheEndNeverMatches) {
  write("dwgdir.dab", "A01     0001B12     00");
  expectFailure(L"B12", L"");
  EXPECT_EQ(found(L"A01"), L"Dqbl0001\\A01.dwg");
}

TEST_F(SymbolSearch, EmptyDirectoryFileHoldsNothing) {
  write("dwgdir.dab", "");
  expectFailure(L"A01", L"");
}

TEST_F(SymbolSearch, WrongType) {
  std::wstring path = L"left over";
  EXPECT_EQ(SearchSymbolFile(L"DXF", L"A01", path), 0);
  EXPECT_EQ(path, L"");
  EXPECT_EQ(takeTranscript(), kWrongType);
}

TEST_F(SymbolSearch, IllegalName) { expectFailure(L"A 1", kIllegal); }

TEST_F(SymbolSearch, EmptyFolderSetting) {
  WriteInformation(L"Dwglib", L"Dwgdir", L"", 1);
  expectFailure(L"A01", L"\n注册表串值Dwgdir无效.");
}

TEST_F(SymbolSearch, UnreadableInformationStore) {
  test::writeBytes(install_.folder() / "information.txt", std::string_view("\xFF\xFE\0[", 4));
  expectFailure(L"A01", L"\n读取注册表错误.");
}

TEST_F(SymbolSearch, FolderThatIsNotThere) {
  WriteInformation(L"Dwglib", L"Dwgdir",
                   test::Install::wide(install_.folder() / "elsewhere").c_str(), 1);
  expectFailure(L"A01", L"\n目录变量DwgDir非法!");
}

TEST_F(SymbolSearch, TemporaryFileThatCannotBeNamedOrRemoved) {
  test::host().fail(L"temporaryName", 1);
  expectFailure(L"A01", L"\n产生临时文件失败!");
  test::host().fail(L"removeFile", 1);
  expectFailure(L"A01", L"\n删除临时文件失败!");
}

TEST_F(SymbolSearch, FolderIsTestedBeforeTheDirectoryFileAndThatBeforeTheName) {
  std::filesystem::remove(install_.symbols() / "dwgdir.dab");
  const std::wstring folder = test::Install::wide(install_.symbols()) + L"\\";
  expectFailure(L"A 1", L"\n目录" + folder + L"下无数据文件dwgdir.dab!");
  test::host().fail(L"temporaryName");
  expectFailure(L"A 1", L"\n产生临时文件失败!");
}

TEST_F(SymbolSearch, EverySearchReadsTheFileAnew) {
  EXPECT_EQ(found(L"A01"), L"Dqbl0001\\A01.dwg");
  write("dwgdir.dab", "A01     0004");
  EXPECT_EQ(found(L"A01"), L"Dqbl0004\\A01.dwg");
}

TEST_F(SymbolSearch, FolderWithFinalBackslashIsTheSame) {
  WriteInformation(L"dwglib", L"DWGDIR", (test::Install::wide(install_.symbols()) + L"\\").c_str(),
                   1);
  EXPECT_EQ(found(L"A01"), L"Dqbl0001\\A01.dwg");
}

TEST_F(SymbolSearch, MissingDirectoryFileIsNamed) {
  std::filesystem::remove(install_.symbols() / "dwgdir.dab");
  std::filesystem::remove(install_.symbols() / "slddir.dab");
  const std::wstring folder = test::Install::wide(install_.symbols()) + L"\\";
  expectFailure(L"A01", L"\n目录" + folder + L"下无数据文件dwgdir.dab!");
  std::wstring path;
  EXPECT_EQ(SearchSymbolFile(L"SLD", L"A01", path), 0);
  EXPECT_EQ(takeTranscript(), L"\n目录" + folder + L"下无数据文件slddir.dab!");
}

TEST_F(SymbolSearch, DirectoryFileThatIsAFolderIsNotOpened) {
  std::filesystem::remove(install_.symbols() / "dwgdir.dab");
  std::filesystem::create_directory(install_.symbols() / "dwgdir.dab");
  expectFailure(L"A01", L"\n文件打开失败!");
}

TEST_F(SymbolSearch, LeavesNoTemporaryFile) {
  found(L"A01");
  found(L"C99");
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(install_.symbols())) {
    files += entry.is_regular_file() ? 1 : 0;
  }
  EXPECT_EQ(files, 2);
}

#ifndef _WIN32
namespace fs = std::filesystem;

// Searches as a user to whom permissions apply; they don't to the superuser. True when the search
// fails with the message.
bool failsForAUser(const wchar_t* message) {
  const pid_t child = fork();
  if (child == 0) {
    constexpr int kNoSuchUser = 65534;
    if (geteuid() == 0 && seteuid(kNoSuchUser) != 0) _exit(2);
    std::wstring path;
    const int result = SearchSymbolFile(L"DWG", L"A01", path);
    _exit(result == 0 && takeTranscript() == message ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(SymbolSearch, ReadOnlyFolderIsRefusedThoughItsFilesCanBeRead) {
  fs::permissions(install_.folder(), fs::perms(0755));
  fs::permissions(install_.symbols(), fs::perms(0555));
  EXPECT_TRUE(failsForAUser(L"\n目录变量DwgDir非法!"));
  fs::permissions(install_.symbols(), fs::perms(0755));
}

TEST_F(SymbolSearch, ReadOnlyDirectoryFileIsRefusedThoughItCouldBeRead) {
  fs::permissions(install_.folder(), fs::perms(0755));
  fs::permissions(install_.symbols(), fs::perms(0777));
  fs::permissions(install_.symbols() / "dwgdir.dab", fs::perms(0444));
  EXPECT_TRUE(failsForAUser(L"\n文件打开失败!"));
}

TEST_F(SymbolSearch, DirectoryFileInMixedCaseIsFound) {
  std::filesystem::rename(install_.symbols() / "dwgdir.dab", install_.symbols() / "DWGdir.DAB");
  EXPECT_EQ(found(L"A01"), L"Dqbl0001\\A01.dwg");
}
#endif

class SymbolIndex : public testing::Test {
 protected:
  SymbolIndex() {
    std::filesystem::create_directories(install_.symbols() / "Dqbl0001");
    takeTranscript();
  }
  void write(std::string_view bytes) {
    test::writeBytes(install_.symbols() / "Dqbl0001" / "Dqbl0001.idx", bytes);
  }
  std::wstring indexOf(const std::wstring& name) {
    return ReadSymbolIndex(test::Install::wide(install_.symbols()) + L"\\Dqbl0001\\" + name +
                           L".dwg");
  }
  test::Install install_;
};

TEST_F(SymbolIndex, JoinsTheTwoWordsBehindTheName) {
  write("A01 breaker QF A01 0 0 0 0 0\r\nB12  fuse   FU x 1 2 3 4 5\r\n");
  EXPECT_EQ(indexOf(L"A01"), L"breaker&QF");
  EXPECT_EQ(indexOf(L"B12"), L"fuse&FU");
}

TEST_F(SymbolIndex, ReadsAnsiText) {
  write("A01 \xBD\xD3\xB4\xA5\xC6\xF7 KM A01 0 0 0 0 0\r\n");
  EXPECT_EQ(indexOf(L"A01"), L"接触器&KM");
}

TEST_F(SymbolIndex, NameInsideALongerWordEndsTheScan) {
  write("A012 breaker QF A012 0 0 0 0 0\r\nA01 fuse FU A01 0 0 0 0 0\r\n");
  EXPECT_EQ(indexOf(L"A01"), L"&");
}

TEST_F(SymbolIndex, NameIsSearchedWithItsCase) {
  write("xa01 y a01 two words\r\n");
  EXPECT_EQ(indexOf(L"a01"), L"y&a01");  // the tail of the first word counts
}

TEST_F(SymbolIndex, AbsentNameScansFromNearTheBeginning) {
  write("xx one two three");
  EXPECT_EQ(indexOf(L"QQQ"), L"one&two");  // starts at 2, the blank
  EXPECT_EQ(indexOf(L"QQ"), L"&");         // starts at 1, a letter
}

TEST_F(SymbolIndex, EndOfALineBelongsToTheWord) {
  write("A01 one two\r\nB12 x y z\r\n");
  EXPECT_EQ(indexOf(L"A01"), L"one&two\r\nB12");
}

TEST_F(SymbolIndex, EmptyFileGivesTheJoinAlone) {
  write("");
  EXPECT_EQ(indexOf(L"A01"), L"&");
}

TEST_F(SymbolIndex, MissingFileGivesAMessageAndNothing) {
  EXPECT_EQ(indexOf(L"A01"), L"");
  EXPECT_EQ(takeTranscript(), L"\n打开文件失败!");
}

TEST_F(SymbolIndex, TakesSlashesToo) {
  write("A01 one two three");
  std::wstring path = test::Install::wide(install_.symbols()) + L"/Dqbl0001/A01.dwg";
  EXPECT_EQ(ReadSymbolIndex(path), L"one&two");
}

}  // namespace
