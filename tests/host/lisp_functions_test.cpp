// showzhlk, hidezhlk and zhlmsgmk.
#include "host/host_fixture.h"
#include "module/information.h"

namespace {

using test::Link;
using test::takeTranscript;

constexpr int kShow = 1;
constexpr int kHide = 2;
constexpr int kMark = 4;

class LispFunctions : public test::HostFixture {
 protected:
  LispFunctions() { send(AcRx::kInitAppMsg); }
  static Link integer(std::int16_t value) { return {RTSHORT, value}; }
  static Link text(const wchar_t* value) { return {RTSTR, std::wstring(value)}; }
  static Link real(double value) { return {RTREAL, AcGePoint3d{value, 0, 0}}; }
};

TEST_F(LispFunctions, ShowAndHideReturnNothing) {
  EXPECT_EQ(call(kShow), L"void");
  EXPECT_TRUE(libraryWindow()->IsVisible());
  EXPECT_EQ(call(kShow), L"void");
  EXPECT_TRUE(libraryWindow()->IsVisible());
  EXPECT_EQ(call(kHide), L"void");
  EXPECT_FALSE(libraryWindow()->IsVisible());
}

TEST_F(LispFunctions, MarkOfOneIsSetAndAnythingElseClears) {
  EXPECT_EQ(call(kMark, {integer(1)}), L"T");
  EXPECT_EQ(GetMessageMark(), 1);
  EXPECT_EQ(call(kMark, {integer(2)}), L"T");
  EXPECT_EQ(GetMessageMark(), 0);
}

TEST_F(LispFunctions, FurtherArgumentsAreIgnored) {
  EXPECT_EQ(call(kMark, {integer(1), integer(2)}), L"T");
  EXPECT_EQ(GetMessageMark(), 1);
}

TEST_F(LispFunctions, MarkWithoutArgumentIsRefused) {
  call(kMark, {integer(1)});
  EXPECT_EQ(call(kMark), L"nil");
  EXPECT_EQ(takeTranscript(), L"\n无参数");
  EXPECT_EQ(GetMessageMark(), 1);
}

TEST_F(LispFunctions, MarkMustBeAnInteger) {
  call(kMark, {integer(1)});
  for (const Link& argument : {text(L"1"), real(1.0)}) {
    EXPECT_EQ(call(kMark, {argument}), L"nil");
    EXPECT_EQ(takeTranscript(), L"\n参数应为整数");
  }
  EXPECT_EQ(GetMessageMark(), 1);
}

TEST_F(LispFunctions, MarkThatCannotBeWrittenIsNotReported) {
  test::setVariable("VORNIK_INFORMATION", install_.folder() / "information.txt" / "below a file");
  EXPECT_EQ(call(kMark, {integer(1)}), L"T");
  EXPECT_EQ(takeTranscript(), L"");
}

}  // namespace
