// Slide libraries read whole, without their bitmaps.
#include <gtest/gtest.h>

#include "embedded/base/paths.h"
#include "embedded/slide_store/slide_listing.h"
#include "platform/slide_store.h"
#include "support/temp_folder.h"
#include "support/transcript.h"

namespace {

class SlideLibraryData : public testing::Test {
 protected:
  std::wstring path(const char* name = "group.slb") const {
    return base::wideFromPath(folder_ / name);
  }
  void write(std::initializer_list<const wchar_t*> names) {
    CSlbMan library;
    library.OnOpenDocument(path().c_str());
    const std::string slide = test::slideWith(test::kExampleRecords);
    for (const wchar_t* name : names) {
      library.AddSlideW(name, slide.data(), static_cast<std::uint32_t>(slide.size()));
    }
    ASSERT_EQ(library.SaveModified(), 1);
  }

  test::TempFolder folder_;
  CSlideLibraryData data_;
};

TEST_F(SlideLibraryData, NamesAreFoundWithoutCase) {
  write({L"FG001001", L"FG001002", L"主回路&05"});
  EXPECT_NE(data_.ReadDataFromFileW(path()), 0);
  EXPECT_EQ(data_.GetIndexFromName(L"FG001001"), 0);
  EXPECT_EQ(data_.GetIndexFromName(L"fg001002"), 1);
  EXPECT_EQ(data_.GetIndexFromName(L"主回路&05"), 2);
  EXPECT_EQ(data_.GetIndexFromName(L"FG001003"), kNoSlide);
  EXPECT_EQ(data_.GetIndexFromName(L""), kNoSlide);
}

TEST_F(SlideLibraryData, FileThatCannotBeReadIsAnEmptyLibrary) {
  write({L"A"});
  data_.ReadDataFromFileW(path());
  EXPECT_EQ(data_.ReadDataFromFileW(path("missing.slb")), 0);
  EXPECT_EQ(data_.GetIndexFromName(L"A"), kNoSlide);
  EXPECT_EQ(data_.DeleteSlideFromSlb(L"A"), 0);
  test::writeBytes(folder_ / "text.slb", "no slide library");
  EXPECT_EQ(data_.ReadDataFromFileW(path("text.slb")), 0);
  EXPECT_EQ(data_.GetIndexFromName(L"A"), kNoSlide);
}

TEST_F(SlideLibraryData, RemovedSlideIsGoneFromTheFile) {
  write({L"A", L"B", L"C"});
  data_.ReadDataFromFileW(path());
  EXPECT_EQ(data_.DeleteSlideFromSlb(L"b"), 1);
  EXPECT_EQ(data_.DeleteSlideFromSlb(L"b"), 0);
  EXPECT_EQ(data_.GetIndexFromName(L"C"), 1);
  EXPECT_EQ(data_.WriteDataToFile(path()), 1);
  CSlideLibraryData again;
  again.ReadDataFromFileW(path());
  EXPECT_EQ(again.GetIndexFromName(L"A"), 0);
  EXPECT_EQ(again.GetIndexFromName(L"C"), 1);
  EXPECT_EQ(again.GetIndexFromName(L"B"), kNoSlide);
}

TEST_F(SlideLibraryData, DamagedFileIsMovedAsideBeforeItIsWritten) {
  test::writeBytes(folder_ / "group.slb", "no slide library");
  data_.ReadDataFromFileW(path());
  EXPECT_EQ(data_.WriteDataToFile(path()), 1);
  EXPECT_TRUE(std::filesystem::exists(folder_ / "group.slb.damaged-1"));
  EXPECT_EQ(std::filesystem::file_size(folder_ / "group.slb"), 68u);
  EXPECT_NE(test::takeTranscript().find(L"group.slb.damaged-1"), std::wstring::npos);
}

TEST_F(SlideLibraryData, FileThatCannotBeWrittenIsTold) {
  EXPECT_EQ(data_.WriteDataToFile(path("missing/group.slb")), 0);
  EXPECT_NE(test::takeTranscript().find(L"group.slb"), std::wstring::npos);
}

}  // namespace
