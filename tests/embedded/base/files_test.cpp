#include "embedded/base/files.h"

#include <gtest/gtest.h>

#include "embedded/base/paths.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using base::SaveStep;
using base::Status;
using test::bytesOf;

class Saving : public testing::Test {
 protected:
  ~Saving() override { base::setSaveHook(nullptr); }

  std::size_t fileCount() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
  }

  test::TempFolder folder_;
  fs::path document_ = folder_ / base::pathFromWide(L"图库.qdp");
  fs::path backup_ = folder_ / base::pathFromWide(L"图库.qdp.bak");
};

TEST_F(Saving, MakesANewDocumentWithoutBackup) {
  EXPECT_TRUE(base::saveAtomically(document_, "one").ok());
  EXPECT_EQ(bytesOf(document_), "one");
  EXPECT_EQ(fileCount(), 1u);
}

TEST_F(Saving, KeepsTheDocumentBeforeAsBackup) {
  for (const char* text : {"one", "two", "three"})
    ASSERT_TRUE(base::saveAtomically(document_, text).ok());
  EXPECT_EQ(bytesOf(document_), "three");
  EXPECT_EQ(bytesOf(backup_), "two");
  EXPECT_EQ(fileCount(), 2u);
}

TEST_F(Saving, LeavesNoBackupWhenToldSo) {
  ASSERT_TRUE(base::saveAtomically(document_, "one").ok());
  ASSERT_TRUE(base::saveAtomically(document_, "two", {.keepBackup = false}).ok());
  EXPECT_EQ(bytesOf(document_), "two");
  EXPECT_EQ(fileCount(), 1u);
}

TEST_F(Saving, WritesBytesAsTheyAre) {
  const std::string bytes("a\0\r\n\x1A\xFF", 6);
  ASSERT_TRUE(base::saveAtomically(document_, bytes).ok());
  EXPECT_EQ(bytesOf(document_), bytes);
}

TEST_F(Saving, AnEmptyDocumentIsADocument) {
  ASSERT_TRUE(base::saveAtomically(document_, "").ok());
  EXPECT_TRUE(fs::exists(document_));
  EXPECT_EQ(fs::file_size(document_), 0u);
}

TEST_F(Saving, AFolderThatIsNotThereIsNamed) {
  const Status status = base::saveAtomically(folder_ / "none" / "a.dwg", "x");
  EXPECT_FALSE(status.ok());
  EXPECT_NE(status.message().find("a.dwg"), std::string::npos) << status.message();
}

TEST_F(Saving, AFolderInPlaceOfTheDocumentStays) {
  fs::create_directory(document_);
  EXPECT_FALSE(base::saveAtomically(document_, "x").ok());
  EXPECT_TRUE(fs::is_directory(document_));
  EXPECT_EQ(fileCount(), 1u);
}

SaveStep failingStep;

class SavingFaults : public Saving, public testing::WithParamInterface<SaveStep> {};

TEST_P(SavingFaults, LeaveTheOldDocumentAndNothingElse) {
  ASSERT_TRUE(base::saveAtomically(document_, "old", {.keepBackup = false}).ok());
  failingStep = GetParam();
  base::setSaveHook([](SaveStep step) {
    return step == failingStep ? Status::failure("no space left") : Status();
  });
  const Status status = base::saveAtomically(document_, "new");
  EXPECT_FALSE(status.ok());
  EXPECT_NE(status.message().find("no space left"), std::string::npos);
  EXPECT_NE(status.message().find(base::utf8FromPath(document_)), std::string::npos);
  EXPECT_EQ(bytesOf(document_), "old");
  // The backup may have been made already; then it holds the old document too.
  EXPECT_EQ(fileCount(), fs::exists(backup_) ? 2u : 1u);
  if (fs::exists(backup_)) {
    EXPECT_EQ(bytesOf(backup_), "old");
  }
}

INSTANTIATE_TEST_SUITE_P(EveryStep, SavingFaults,
                         testing::Values(SaveStep::create, SaveStep::write, SaveStep::flush,
                                         SaveStep::keepBackup, SaveStep::replace));

TEST_F(Saving, ADamagedFileIsMovedToTheFirstFreeNumber) {
  for (int number = 1; number <= 3; ++number) {
    test::writeBytes(document_, "damaged " + std::to_string(number));
    const auto aside = base::moveDamagedAside(document_);
    ASSERT_TRUE(aside.ok()) << aside.message();
    fs::path expected = document_;
    expected += ".damaged-" + std::to_string(number);
    EXPECT_EQ(*aside, expected);
    EXPECT_EQ(bytesOf(expected), "damaged " + std::to_string(number));
    EXPECT_FALSE(fs::exists(document_));
  }
}

TEST_F(Saving, AMissingFileCannotBeMovedAside) {
  const auto aside = base::moveDamagedAside(document_);
  EXPECT_FALSE(aside.ok());
  EXPECT_NE(aside.message().find(base::utf8FromPath(document_)), std::string::npos);
}

TEST_F(Saving, ReadingGivesAllBytes) {
  const std::string bytes("\0\r\n\x1A\xFF", 5);
  test::writeBytes(document_, bytes);
  const auto read = base::readFile(document_);
  ASSERT_TRUE(read.ok()) << read.message();
  EXPECT_EQ(*read, bytes);
}

TEST_F(Saving, ReadingRefusesAFileBeyondTheBound) {
  test::writeBytes(document_, "12345");
  EXPECT_TRUE(base::readFile(document_, 5).ok());
  const auto read = base::readFile(document_, 4);
  EXPECT_FALSE(read.ok());
  EXPECT_NE(read.message().find("5 bytes"), std::string::npos);
}

TEST_F(Saving, ReadingNamesTheFileThatIsMissing) {
  const auto read = base::readFile(document_);
  EXPECT_FALSE(read.ok());
  EXPECT_NE(read.message().find(base::utf8FromPath(document_)), std::string::npos);
  EXPECT_FALSE(base::readFile(folder_.path()).ok());
}

}  // namespace
