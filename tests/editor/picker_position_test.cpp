// The picker's place from one edit to the next.
#include "editor/picker_position.h"

#include <gtest/gtest.h>

#include "support/install.h"
#include "support/transcript.h"

namespace {

class Position : public testing::Test {
 protected:
  Position() { std::filesystem::create_directories(install_.root() / "user"); }
  test::Install install_;
};

TEST_F(Position, StartsAtTheFirstSymbol) {
  const PickerPosition position;
  EXPECT_EQ(position.page(), 0);
  EXPECT_EQ(position.selection(), 0);
  EXPECT_EQ(test::takeTranscript(), L"");
}

TEST_F(Position, IsKeptInTheUsersFolder) {
  PickerPosition().save(2, 71);
  EXPECT_TRUE(std::filesystem::exists(install_.root() / "user" / "ZemTemporary.Qdp"));
  EXPECT_EQ(PickerPosition().page(), 2);
  EXPECT_EQ(PickerPosition().selection(), 71);
}

TEST_F(Position, NoSelectionIsKeptToo) {
  PickerPosition().save(0, -1);
  EXPECT_EQ(PickerPosition().selection(), -1);
}

TEST_F(Position, OtherKeysOfTheFileStay) {
  const std::wstring path = test::Install::wide(install_.root() / "user") + L"\\ZemTemporary.Qdp";
  CQuillDpData other;
  other.SetSubValueW(L"other", 2, L"x", 0);
  ASSERT_EQ(other.WriteDataToQdpFile(path.c_str()), 1);
  PickerPosition().save(1, 1);
  CQuillDpData read;
  ASSERT_EQ(read.ReadDataFromQdpFile(path.c_str()), 1);
  EXPECT_EQ(read.GetSubValueFromPathW(0, L"other")->text(), L"x");
}

TEST_F(Position, UnwritableFolderIsToldAndHarmless) {
  std::filesystem::remove_all(install_.root() / "user");
  test::writeBytes(install_.root() / "user", "a file stands there");
  PickerPosition position;
  position.save(3, 4);
  EXPECT_NE(test::takeTranscript(), L"");
  EXPECT_EQ(position.page(), 3);
}

}  // namespace
