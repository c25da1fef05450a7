// acedCommand, prompts, system variables and output as modules use them.
#include "embedded/base/text.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "support/session_fixture.h"

namespace {

using Texts = std::vector<std::string>;
using test::SessionFixture;

class HostCommands : public SessionFixture {
 protected:
  std::wstring keyword_ = std::wstring(kAcadTextLimit, L'x');
  AcGePoint2d point_{-1, -1};
  int askKeyword(int flags, const wchar_t* keywords) {
    acedInitGet(flags, keywords);
    const int result = acedGetKword(L"\nWhich: ", keyword_.data());
    keyword_.resize(std::wcslen(keyword_.c_str()));
    return result;
  }
  int askPoint(const wchar_t* keywords, const AcGePoint2d* from = nullptr) {
    acedInitGet(0, keywords);
    const int result = GetPoint(from, L"\nWhere: ", 0, point_, keyword_.data());
    keyword_.resize(std::wcslen(keyword_.c_str()));
    return result;
  }
};

TEST_F(HostCommands, EveryKindOfArgumentIsTaken) {
  const ads_point flat = {1, 2, 99}, solid = {1, 2, 3};
  EXPECT_EQ(acedCommand(RTSTR, L"LINE", RTPOINT, flat, RT3DPOINT, solid, RTSTR, L"", RTNONE),
            RTNORM);
  EXPECT_EQ(acedCommand(RTSTR, L"CIRCLE", RTSTR, L"0,0", RTREAL, 2.5, RTNONE), RTNORM);
  EXPECT_EQ(acedCommand(RTSTR, L"COLOR", RTSHORT, 3, 0), RTNORM);
  EXPECT_EQ(acedCommand(RTSTR, L"TEXT", RTPOINT, flat, RTREAL, 2.0, RTREAL, 90.0, RTSTR,
                        L"主回路 1", RTNONE),
            RTNORM);
  EXPECT_EQ(entities(), (Texts{"LINE 1,2 1,2,3", "CIRCLE 0,0 2.5",
                               "TEXT 1,2 2 turned 90 \"主回路 1\" colour 3"}));
}

TEST_F(HostCommands, ShortArgumentHasSixteenBits) {
  EXPECT_EQ(acedCommand(RTSTR, L"COLOR", RTSHORT, 65536 + 3, RTNONE), RTNORM);
  EXPECT_EQ(session.variables.text("CECOLOR"), "3");
}

TEST_F(HostCommands, EntityAndSetAreSelections) {
  type("POINT 1,1\nPOINT 2,2\nPOINT 3,3\n");
  ads_name last, all;
  ASSERT_EQ(acdbEntLast(last), RTNORM);
  EXPECT_EQ(acedCommand(RTSTR, L"ERASE", RTENAME, last, RTSTR, L"", RTNONE), RTNORM);
  EXPECT_EQ(entities(), (Texts{"POINT 1,1", "POINT 2,2"}));
  ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, all), RTNORM);
  EXPECT_EQ(acedCommand(RTSTR, L"ERASE", RTPICKS, all, RTSTR, L"", RTNONE), RTNORM);
  EXPECT_TRUE(entities().empty());
}

TEST_F(HostCommands, UnknownCommandOrArgumentIsTold) {
  EXPECT_EQ(acedCommand(RTSTR, L"NOSUCH", RTNONE), RTCAN);
  EXPECT_EQ(takePrinted(), "\nUnknown command \"NOSUCH\".");
  EXPECT_EQ(acedCommand(4711, 1, RTNONE), RTERROR);
  EXPECT_EQ(acedCommand(RTNONE), RTNORM);
}

TEST_F(HostCommands, ArgumentsThatRunOutCancelTheCommandAndTheNextStartsClean) {
  const ads_point at = {1, 1, 0};
  EXPECT_EQ(acedCommand(RTSTR, L"CIRCLE", RTPOINT, at, RTNONE), RTCAN);
  EXPECT_EQ(acedCommand(RTSTR, L"POINT", RTPOINT, at, RTNONE), RTNORM);
  EXPECT_EQ(entities(), Texts{"POINT 1,1"});
}

TEST_F(HostCommands, TypedInputIsLeftAlone) {
  session.line.type("CIRCLE 5,5 1\n");
  const ads_point at = {1, 1, 0};
  acedCommand(RTSTR, L"CIRCLE", RTPOINT, at, RTNONE);
  session.line.run();
  EXPECT_EQ(entities(), Texts{"CIRCLE 5,5 1"});
}

TEST_F(HostCommands, WrongArgumentIsPassedOver) {
  EXPECT_EQ(acedCommand(RTSTR, L"POINT", RTSTR, L"nothing", RTSTR, L"2,3", RTNONE), RTNORM);
  EXPECT_EQ(entities(), Texts{"POINT 2,3"});
}

TEST_F(HostCommands, FailingServiceDoesNothing) {
  session.faults.failAt("acedCommand", 1);
  EXPECT_EQ(acedCommand(RTSTR, L"POINT", RTSTR, L"2,3", RTNONE), RTERROR);
  EXPECT_TRUE(entities().empty());
}

TEST_F(HostCommands, KeywordIsGivenAsItWasArmed) {
  session.line.type("u\ncl\n\n");
  EXPECT_EQ(askKeyword(0, L"Undo CLose"), RTNORM);
  EXPECT_EQ(keyword_, L"Undo");
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(askKeyword(0, L"Undo CLose"), RTNORM);
  EXPECT_EQ(keyword_, L"CLose");
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(askKeyword(0, L"Undo CLose"), RTNONE);
  EXPECT_EQ(keyword_, L"");
}

TEST_F(HostCommands, KeywordThatIsntArmedIsRefusedByThePrompt) {
  session.line.type("X\nS\n");
  EXPECT_EQ(askKeyword(0, L"S F N"), RTNORM);
  EXPECT_EQ(takePrinted(), "\nWhich: X\nInvalid option keyword.\nWhich: S");
}

TEST_F(HostCommands, KeywordsHoldForOnePromptOnly) {
  session.line.type("S\nS\n");
  EXPECT_EQ(askKeyword(0, L"S"), RTNORM);
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(acedGetKword(L"\nAgain: ", keyword_.data()), RTCAN);
}

TEST_F(HostCommands, EnterMayBeForbidden) {
  session.line.type("\nS\n");
  EXPECT_EQ(askKeyword(1, L"S"), RTNORM);
}

TEST_F(HostCommands, EscAndTheEndOfInputCancel) {
  session.line.type("\x1B");
  EXPECT_EQ(askKeyword(0, L"S"), RTCAN);
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(askKeyword(0, L"S"), RTCAN);
  keyword_.resize(kAcadTextLimit);
  session.faults.failAt("acedGetKword", 1);
  EXPECT_EQ(acedGetKword(L"", keyword_.data()), RTERROR);
}

TEST_F(HostCommands, PointPromptGivesPointKeywordEnterOrCancel) {
  session.line.type("3,4,5\nf\n\n\x1B");
  EXPECT_EQ(askPoint(L"F N"), RTNORM);
  EXPECT_EQ(point_.x, 3);
  EXPECT_EQ(point_.y, 4);
  EXPECT_EQ(keyword_, L"");
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(askPoint(L"F N"), RTKWORD);
  EXPECT_EQ(keyword_, L"F");
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(askPoint(L"F N"), RTNONE);
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(askPoint(L"F N"), RTCAN);
  EXPECT_EQ(point_.x, 3);  // only a point changes it
}

TEST_F(HostCommands, PointPromptRefusesWhatIsNotArmed) {
  session.line.type("S\n1,1\n");
  EXPECT_EQ(askPoint(L"F N"), RTNORM);
  EXPECT_EQ(takePrinted(), "\nWhere: S\nInvalid point.\nWhere: 1,1");
}

TEST_F(HostCommands, PointIsTheLastPointOfTheNext) {
  session.line.type("3,4\n@1,0\n");
  askPoint(L"");
  keyword_.resize(kAcadTextLimit);
  EXPECT_EQ(askPoint(L""), RTNORM);
  EXPECT_EQ(point_.x, 4);
}

TEST_F(HostCommands, FailingPointPrompt) {
  session.faults.failAt("GetPoint", 1);
  EXPECT_EQ(askPoint(L""), RTERROR);
}

TEST_F(HostCommands, VariablesComeWithTheirType) {
  resbuf value{};
  ASSERT_EQ(acedGetVar(L"ATTREQ", &value), RTNORM);
  EXPECT_EQ(value.restype, RTSHORT);
  EXPECT_EQ(value.resval.rint, 1);
  ASSERT_EQ(acedGetVar(L"DIMSCALE", &value), RTNORM);
  EXPECT_EQ(value.restype, RTREAL);
  ASSERT_EQ(acedGetVar(L"LIMMAX", &value), RTNORM);
  EXPECT_EQ(value.restype, RTPOINT);
  ASSERT_EQ(acedGetVar(L"INSBASE", &value), RTNORM);
  EXPECT_EQ(value.restype, RT3DPOINT);
  resbuf* text = acutNewRb(RTSTR);
  ASSERT_EQ(acedGetVar(L"CLAYER", text), RTNORM);
  EXPECT_STREQ(text->resval.rstring, L"0");
  acutRelRb(text);
  EXPECT_EQ(acedGetVar(L"NOSUCH", &value), RTERROR);
  EXPECT_EQ(acedGetVar(nullptr, &value), RTERROR);
  EXPECT_EQ(acedGetVar(L"ATTREQ", nullptr), RTERROR);
}

TEST_F(HostCommands, VariablesAreSetWithinTheirLimits) {
  resbuf value{};
  value.restype = RTSHORT;
  value.resval.rint = 0;
  EXPECT_EQ(acedSetVar(L"ATTREQ", &value), RTNORM);
  EXPECT_EQ(session.variables.integer("ATTREQ"), 0);
  value.resval.rint = 5;
  EXPECT_EQ(acedSetVar(L"ATTREQ", &value), RTERROR);
  value.restype = RTLB;
  EXPECT_EQ(acedSetVar(L"ATTREQ", &value), RTERROR);
  std::wstring style = L"standard";
  value.restype = RTSTR;
  value.resval.rstring = style.data();
  EXPECT_EQ(acedSetVar(L"TEXTSTYLE", &value), RTNORM);
  EXPECT_EQ(acedSetVar(nullptr, &value), RTERROR);
  EXPECT_EQ(acedSetVar(L"TEXTSTYLE", nullptr), RTERROR);
}

TEST_F(HostCommands, VariablesFailOnDemand) {
  resbuf value{};
  session.faults.failAt("acedGetVar", 1);
  EXPECT_EQ(acedGetVar(L"ATTREQ", &value), RTERROR);
  value.restype = RTSHORT;
  session.faults.failAt("acedSetVar", 1);
  EXPECT_EQ(acedSetVar(L"ATTREQ", &value), RTERROR);
}

TEST_F(HostCommands, PrintsWideTextAndNumbersWithoutLocale) {
  acutPrintf(L"\n%s %d %.2f", L"回路", 7, 2.5);
  EXPECT_EQ(takePrinted(), "\n回路 7 2.50");
}

TEST_F(HostCommands, DistancesAreReadWithExponents) {
  double value = 0;
  EXPECT_EQ(acdbDisToF(L"1e+06", 2, &value), RTNORM);
  EXPECT_EQ(value, 1000000.0);
  EXPECT_EQ(acdbDisToF(L"2.5", 2, &value), RTNORM);
  EXPECT_EQ(value, 2.5);
  EXPECT_EQ(acdbDisToF(L"2.5mm", 2, &value), RTERROR);
  EXPECT_EQ(acdbDisToF(L"", 2, &value), RTERROR);
  EXPECT_EQ(acdbDisToF(L"2.5", 1, &value), RTERROR);
  EXPECT_EQ(acdbDisToF(nullptr, 2, &value), RTERROR);
  EXPECT_EQ(value, 2.5);
}

TEST_F(HostCommands, PolarKeepsTheHeight) {
  const ads_point from = {1, 1, 7};
  ads_point to;
  acutPolar(from, 0, 5, to);
  EXPECT_EQ(to[0], 6);
  EXPECT_EQ(to[1], 1);
  EXPECT_EQ(to[2], 7);
}

TEST_F(HostCommands, BlipsAreAVariable) {
  acdbHostApplicationServices()->workingDatabase()->setBlipmode(true);
  EXPECT_EQ(session.variables.integer("BLIPMODE"), 1);
  acdbHostApplicationServices()->workingDatabase()->setBlipmode(false);
  EXPECT_EQ(session.variables.integer("BLIPMODE"), 0);
}

TEST_F(HostCommands, LocksCountAndNeverFallBelowNone) {
  lockDoc();
  lockDoc();
  EXPECT_EQ(session.document().locks, 2);
  unlockDoc();
  unlockDoc();
  unlockDoc();
  EXPECT_EQ(session.document().locks, 0);
}

}  // namespace
