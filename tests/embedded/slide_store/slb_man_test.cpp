// CSlbMan on files: opening, adding, saving, and libraries that others change or damage.
#include <gtest/gtest.h>

#include "embedded/base/paths.h"
#include "platform/slide_store.h"
#include "support/temp_folder.h"
#include "support/transcript.h"

namespace {

namespace fs = std::filesystem;
using test::takeTranscript;

class SlbMan : public testing::Test {
 protected:
  SlbMan() { takeTranscript(); }
  std::wstring wide() const { return base::wideFromPath(path_); }
  static int add(CSlbMan& library, const wchar_t* name, std::string_view bytes) {
    return library.AddSlideW(name, bytes.data(), static_cast<std::uint32_t>(bytes.size()));
  }
  static std::string get(const CSlbMan& library, const wchar_t* name) {
    std::string bytes(library.GetSlideSize(name), '?');
    return library.GetSlideData(name, bytes.data()) ? bytes : "(none)";
  }
  std::string inFile(const wchar_t* name) {
    CSlbMan library;
    library.OnOpenDocument(wide().c_str());
    return get(library, name);
  }
  void make(const wchar_t* name, std::string_view bytes) {
    CSlbMan library;
    library.OnOpenDocument(wide().c_str());
    add(library, name, bytes);
    EXPECT_NE(library.SaveModified(), 0);
  }

  test::TempFolder folder_;
  fs::path path_ = folder_ / "zhllib.slb";
};

TEST_F(SlbMan, AddsAndSavesWhereNoFileStands) {
  CSlbMan library;
  EXPECT_EQ(library.OnOpenDocument(wide().c_str()), 0);
  EXPECT_NE(add(library, L"主回路&05", "slide"), 0);
  EXPECT_FALSE(fs::exists(path_));
  EXPECT_NE(library.SaveModified(), 0);
  EXPECT_EQ(inFile(L"主回路&05"), "slide");
}

TEST_F(SlbMan, AddingReplaces) {
  make(L"A", "one");
  make(L"a", "two");
  EXPECT_EQ(inFile(L"A"), "two");
}

TEST_F(SlbMan, DeletesAndKeepsTheOldFileAsBackup) {
  make(L"A", "one");
  make(L"B", "two");
  CSlbMan library;
  EXPECT_NE(library.OnOpenDocument(wide().c_str()), 0);
  EXPECT_NE(library.DelSlide(L"A"), 0);
  EXPECT_EQ(library.DelSlide(L"A"), 0);
  library.SaveModified();
  EXPECT_EQ(inFile(L"A"), "(none)");
  EXPECT_EQ(inFile(L"B"), "two");
  EXPECT_TRUE(fs::exists(folder_ / "zhllib.slb.bak"));
}

TEST_F(SlbMan, NamesThatCannotBeStoredAreRefused) {
  CSlbMan library;
  library.OnOpenDocument(wide().c_str());
  EXPECT_EQ(add(library, L"", "x"), 0);
  EXPECT_EQ(add(library, L"1234567890123456789012345678901", "x"), 1);
  EXPECT_EQ(add(library, L"12345678901234567890123456789012", "x"), 0);
  EXPECT_EQ(add(library, L"主主主主主主主主主主主主主主主主", "x"), 0);  // 32 bytes
  EXPECT_EQ(add(library, L"\u0E01", "x"), 0);
  EXPECT_EQ(add(library, L"A", ""), 0);
  EXPECT_EQ(library.AddSlideW(L"A", nullptr, 3), 0);
  EXPECT_EQ(library.GetSlideSize(L"\u0E01"), 0u);
}

TEST_F(SlbMan, UnchangedLibraryIsNotWritten) {
  make(L"A", "one");
  const auto before = fs::last_write_time(path_);
  CSlbMan library;
  library.OnOpenDocument(wide().c_str());
  EXPECT_NE(library.SaveModified(), 0);
  EXPECT_EQ(fs::last_write_time(path_), before);
  EXPECT_FALSE(fs::exists(folder_ / "zhllib.slb.bak"));
}

TEST_F(SlbMan, ChangesOfTwoProgramsAddUp) {
  make(L"A", "one");
  CSlbMan first;
  CSlbMan second;
  first.OnOpenDocument(wide().c_str());
  second.OnOpenDocument(wide().c_str());
  add(first, L"B", "two");
  first.SaveModified();
  add(second, L"C", "three");
  second.DelSlide(L"A");
  second.SaveModified();
  EXPECT_EQ(inFile(L"A"), "(none)");
  EXPECT_EQ(inFile(L"B"), "two");
  EXPECT_EQ(inFile(L"C"), "three");
  EXPECT_EQ(get(second, L"B"), "two");
}

TEST_F(SlbMan, FileThatIsNoLibraryIsMovedAsideOnce) {
  test::writeBytes(path_, "something else");
  CSlbMan library;
  EXPECT_EQ(library.OnOpenDocument(wide().c_str()), 0);
  EXPECT_EQ(takeTranscript(), L"");
  add(library, L"A", "one");
  EXPECT_NE(library.SaveModified(), 0);
  EXPECT_NE(takeTranscript().find(L"zhllib.slb.damaged-1"), std::wstring::npos);
  EXPECT_EQ(test::bytesOf(folder_ / "zhllib.slb.damaged-1"), "something else");
  EXPECT_EQ(inFile(L"A"), "one");
  add(library, L"B", "two");
  library.SaveModified();
  EXPECT_EQ(takeTranscript(), L"");
}

TEST_F(SlbMan, FileDamagedMeanwhileIsMovedAside) {
  make(L"A", "one");
  CSlbMan library;
  library.OnOpenDocument(wide().c_str());
  add(library, L"B", "two");
  test::writeBytes(path_, "something else entirely");
  EXPECT_NE(library.SaveModified(), 0);
  EXPECT_EQ(inFile(L"A"), "one");
  EXPECT_EQ(inFile(L"B"), "two");
  EXPECT_TRUE(fs::exists(folder_ / "zhllib.slb.damaged-1"));
}

TEST_F(SlbMan, FileRemovedMeanwhileIsWrittenAnew) {
  make(L"A", "one");
  CSlbMan library;
  library.OnOpenDocument(wide().c_str());
  add(library, L"B", "two");
  fs::remove(path_);
  library.SaveModified();
  EXPECT_EQ(inFile(L"A"), "one");
  EXPECT_EQ(inFile(L"B"), "two");
}

TEST_F(SlbMan, FolderThatIsNotThereGivesAMessage) {
  CSlbMan library;
  library.OnOpenDocument(base::wideFromPath(folder_ / "no" / "a.slb").c_str());
  add(library, L"A", "one");
  EXPECT_EQ(library.SaveModified(), 0);
  EXPECT_NE(takeTranscript().find(L"a.slb"), std::wstring::npos);
}

TEST_F(SlbMan, UnopenedLibraryIsEmpty) {
  const CSlbMan library;
  EXPECT_EQ(library.GetSlideSize(L"A"), 0u);
  EXPECT_EQ(library.GetSlideData(L"A", nullptr), 0);
}

}  // namespace
