// The module's settings.
#include "module/information.h"

#include <gtest/gtest.h>

#include "support/install.h"

namespace {

class Information : public testing::Test {
 protected:
  void storeMark(const wchar_t* text) { WriteInformation(L"Hlklib", L"ZhlkMessageMark", text, 1); }
  std::wstring storedMark() {
    wchar_t buffer[kInformationLimit];
    GetInformation(L"Hlklib", L"ZhlkMessageMark", L"absent", buffer, 1);
    return buffer;
  }
  test::Install install_;
};

TEST_F(Information, MissingMarkIsZero) { EXPECT_EQ(GetMessageMark(), 0); }

TEST_F(Information, AnyNumberButZeroIsOne) {
  storeMark(L"7");
  EXPECT_EQ(GetMessageMark(), 1);
  storeMark(L"-1");
  EXPECT_EQ(GetMessageMark(), 1);
  storeMark(L"0");
  EXPECT_EQ(GetMessageMark(), 0);
}

TEST_F(Information, MarkThatIsNoNumberIsZero) {
  storeMark(L"x");
  EXPECT_EQ(GetMessageMark(), 0);
}

TEST_F(Information, OnlyOneIsStoredAsOne) {
  setMessageMark(1);
  EXPECT_EQ(storedMark(), L"1");
  setMessageMark(5);
  EXPECT_EQ(storedMark(), L"0");
}

TEST_F(Information, UnreadableStoreGivesNoMark) {
  storeMark(L"1");
  test::writeBytes(install_.folder() / "information.txt", "\xFF");
  EXPECT_EQ(GetMessageMark(), 0);
}

TEST_F(Information, LibraryLiesBelowTheSystemFolder) {
  EXPECT_EQ(libraryFolder(), test::Install::wide(install_.root()) + L"\\Datcom\\zhllib\\");
}

TEST_F(Information, SystemFolderHasADefault) {
  std::filesystem::remove(install_.folder() / "information.txt");
  EXPECT_EQ(systemFolder(), L"C:\\Lumo7.0");
  EXPECT_EQ(libraryFolder(), L"C:\\Lumo7.0\\Datcom\\zhllib\\");
}

TEST_F(Information, UserFolderHasADefault) {
  EXPECT_EQ(userFolder(), test::Install::wide(install_.root() / "user"));
  std::filesystem::remove(install_.folder() / "information.txt");
  EXPECT_EQ(userFolder(), L"C:\\User");
}

}  // namespace
