// Modules: loading, messages, functions and commands, and what a failing module may not do.
#include "embedded/base/text.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "platform/framework_exceptions.h"
#include "support/session_fixture.h"

namespace drafting {
namespace {

// What the test module does with each message; the test puts it here.
std::function<void(AcRx::AppMsgCode)> g_module;

AcRx::AppRetCode entryPoint(AcRx::AppMsgCode message, void*) {
  if (g_module) g_module(message);
  return AcRx::kRetOK;
}

class ModulesTest : public test::SessionFixture {
 protected:
  ~ModulesTest() override {
    session.modules.unloadAll();
    g_module = nullptr;
  }
  // A module with one LISP function.
  void attach(std::function<void()> function) {
    g_module = [function = std::move(function)](AcRx::AppMsgCode message) {
      if (message == AcRx::kLoadDwgMsg) acedDefun(L"testcall", 1);
      if (message == AcRx::kUnloadDwgMsg) acedUndef(L"testcall", 1);
      if (message == AcRx::kInvkSubrMsg) function();
    };
    ASSERT_TRUE(session.modules.attach("test", entryPoint).ok());
  }
};

TEST_F(ModulesTest, GetsTheMessagesOfItsLife) {
  std::vector<int> messages;
  g_module = [&](AcRx::AppMsgCode message) { messages.push_back(message); };
  ASSERT_TRUE(session.modules.attach("test", entryPoint).ok());
  EXPECT_EQ(messages, (std::vector<int>{AcRx::kInitAppMsg, AcRx::kLoadDwgMsg}));
  messages.clear();
  ASSERT_TRUE(session.newDrawing().ok());
  EXPECT_EQ(messages, (std::vector<int>{AcRx::kUnloadDwgMsg, AcRx::kLoadDwgMsg}));
  messages.clear();
  ASSERT_TRUE(session.modules.unload("TEST").ok());
  EXPECT_EQ(messages, (std::vector<int>{AcRx::kUnloadDwgMsg, AcRx::kUnloadAppMsg}));
}

TEST_F(ModulesTest, IsLoadedOnce) {
  attach([] {});
  EXPECT_EQ(session.modules.attach("Test", entryPoint).message(), "Test: is loaded already");
  EXPECT_EQ(session.modules.names(), std::vector<std::string>{"test"});
  EXPECT_EQ(session.modules.unload("other").message(), "other: isn't loaded");
}

TEST_F(ModulesTest, FileThatCannotBeLoadedIsNamed) {
  const std::string absent = pathOf("absent.arx");
  EXPECT_NE(session.modules.load(absent).message().find("absent.arx"), std::string::npos);
  test::writeBytes(folder / "text.arx", "this is no module");
  EXPECT_NE(session.modules.load(pathOf("text.arx")).message().find("text.arx"), std::string::npos);
  EXPECT_TRUE(session.modules.names().empty());
}

TEST_F(ModulesTest, LibraryWithoutEntryPointIsNoModule) {
  EXPECT_EQ(session.modules.load(VORNIK_PLATFORM_FILE).message(),
            std::string(VORNIK_PLATFORM_FILE) + ": is no application module");
}

TEST_F(ModulesTest, ModuleOfAnotherVersionIsRefused) {
  EXPECT_EQ(session.modules.load(VORNIK_OTHER_VERSION_FILE).message(),
            std::string(VORNIK_OTHER_VERSION_FILE) + ": is made for another version of the host");
}

TEST_F(ModulesTest, RealModuleIsLoadedFromItsFileAndLeavesNothingBehind) {
  const base::Status status = session.modules.load(VORNIK_MODULE_FILE);
  ASSERT_TRUE(status.ok()) << status.message();
  EXPECT_EQ(evaluate("(type zhlmsgmk)"), "SUBR");
  EXPECT_NE(session.commands.find("sample"), nullptr);
  const std::string name = session.modules.names().front();
  ASSERT_TRUE(session.modules.unload(name).ok());
  EXPECT_EQ(evaluate("zhlmsgmk"), "nil");
  EXPECT_EQ(session.commands.find("sample"), nullptr);
}

TEST_F(ModulesTest, FunctionTakesArgumentsAndGivesAValue) {
  attach([] {
    EXPECT_EQ(acedGetFunCode(), 1);
    resbuf* arguments = acedGetArgs();
    ASSERT_NE(arguments, nullptr);
    EXPECT_EQ(arguments->restype, RTSHORT);
    EXPECT_EQ(arguments->resval.rint, 7);
    acutRelRb(arguments);
    acedRetNil();
    acedRetStr(L"值");  // the last one stands
  });
  EXPECT_EQ(evaluate("(testcall 7)"), "\"值\"");
}

TEST_F(ModulesTest, ArgumentsOfEveryKindComeAsLinks) {
  std::vector<int> types;
  attach([&] {
    resbuf* arguments = acedGetArgs();
    for (const resbuf* link = arguments; link; link = link->rbnext) types.push_back(link->restype);
    acutRelRb(arguments);
  });
  evaluate("(testcall nil T 1 -32768 40000 2.5 \"x\" '(1 (2)) (entlast))");
  EXPECT_EQ(types, (std::vector<int>{RTNIL, RTT, RTSHORT, RTSHORT, RTLONG, RTREAL, RTSTR, RTLB,
                                     RTSHORT, RTLB, RTSHORT, RTLE, RTLE, RTNIL}));
}

TEST_F(ModulesTest, VeryDeepArgumentIsCutOff) {
  int links = 0;
  attach([&] {
    resbuf* arguments = acedGetArgs();
    for (const resbuf* link = arguments; link; link = link->rbnext) ++links;
    acutRelRb(arguments);
  });
  evaluate("(progn (setq a nil) (repeat 100000 (setq a (list a))) (testcall a))");
  EXPECT_GT(links, 100);
  EXPECT_LT(links, 1000);
}

TEST_F(ModulesTest, NoArgumentsAreNull) {
  bool none = false;
  attach([&] { none = acedGetArgs() == nullptr; });
  EXPECT_EQ(evaluate("(testcall)"), "nil");
  EXPECT_TRUE(none);
}

TEST_F(ModulesTest, ValuesOfEveryKind) {
  std::function<void()> give;
  attach([&] { give(); });
  const struct {
    std::function<void()> give;
    const char* shown;
  } rows[] = {{[] { acedRetVoid(); }, "nil"},
              {[] { acedRetNil(); }, "nil"},
              {[] { acedRetT(); }, "T"},
              {[] { acedRetInt(-5); }, "-5"},
              {[] { acedRetReal(2.5); }, "2.5"},
              {[] { acedRetStr(L"a"); }, "\"a\""},
              {[] {}, "nil"}};
  for (const auto& row : rows) {
    give = row.give;
    EXPECT_EQ(evaluate("(testcall)"), row.shown);
  }
}

TEST_F(ModulesTest, OutsideOfACallThereIsNothingToAnswer) {
  EXPECT_EQ(acedGetFunCode(), 0);
  EXPECT_EQ(acedGetArgs(), nullptr);
  EXPECT_EQ(acedRetT(), RTERROR);
  EXPECT_EQ(acedDefun(L"late", 1), 0);
  EXPECT_EQ(acedUndef(L"late", 1), RTERROR);
}

TEST_F(ModulesTest, DefiningTwiceKeepsOneAndUndefiningNeedsTheCode) {
  int wrongCode = RTNORM;
  attach([&] {
    acedDefun(L"twice", 4);
    acedDefun(L"TWICE", 4);
    wrongCode = acedUndef(L"twice", 5);
    acedUndef(L"twice", 4);
  });
  evaluate("(testcall)");
  EXPECT_EQ(wrongCode, RTERROR);
  EXPECT_EQ(evaluate("twice"), "nil");
}

TEST_F(ModulesTest, RefusedDefinitionIsTold) {
  session.faults.failAt("acedDefun", 1);
  attach([] {});
  EXPECT_EQ(evaluate("testcall"), "nil");
}

TEST_F(ModulesTest, FunctionsAndCommandsLeftRegisteredGoWithTheModule) {
  g_module = [](AcRx::AppMsgCode message) {
    if (message != AcRx::kInitAppMsg) return;
    acedDefun(L"left", 1);
    auto* stack = static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(kAcadRegisteredCommands));
    stack->addCommand(L"GROUP", L"LEFTCOMMAND", L"LEFTCOMMAND", 0, [] {});
  };
  ASSERT_TRUE(session.modules.attach("test", entryPoint).ok());
  EXPECT_EQ(evaluate("(type left)"), "SUBR");
  ASSERT_TRUE(session.modules.unload("test").ok());
  EXPECT_EQ(evaluate("left"), "nil");
  EXPECT_EQ(session.commands.find("LEFTCOMMAND"), nullptr);
}

TEST_F(ModulesTest, ExceptionEndsTheCallAndClosesItsGroups) {
  const struct {
    std::function<void()> raise;
    std::string shown;
  } rows[] = {{[] { AfxThrowInvalidArgException(); }, ""},
              {[] { throw std::runtime_error("went wrong"); }, "went wrong"},
              {[] { throw 5; }, "unknown exception"}};
  for (const auto& row : rows) {
    attach([&] {
      acedCommand(RTSTR, L"undo", RTSTR, L"begin", RTNONE);
      const ads_point at = {1, 1, 0};
      acedCommand(RTSTR, L"POINT", RTPOINT, at, RTNONE);
      row.raise();
    });
    type("(testcall)\nCIRCLE 0,0 1\n");
    EXPECT_NE(takePrinted().find("\nApplication error: " + row.shown), std::string::npos);
    EXPECT_FALSE(session.modules.onStack());
    EXPECT_EQ(session.database().journal().depth(), 0);
    EXPECT_EQ(entities(), (std::vector<std::string>{"POINT 1,1", "CIRCLE 0,0 1"}));
    type("U\nU\n");
    EXPECT_TRUE(entities().empty());
    ASSERT_TRUE(session.modules.unload("test").ok());
  }
}

TEST_F(ModulesTest, ExceptionKeepsTheUsersOwnGroupOpen) {
  attach([] { throw std::runtime_error("x"); });
  type("UNDO BE\n(testcall)\n");
  EXPECT_EQ(session.database().journal().depth(), 1);
}

TEST_F(ModulesTest, ExceptionOutOfACommandOfAModule) {
  g_module = [](AcRx::AppMsgCode message) {
    if (message != AcRx::kInitAppMsg) return;
    auto* stack = static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(kAcadRegisteredCommands));
    EXPECT_TRUE(stack->addCommand(L"G", L"BAD", L"BAD", 0, [] { AfxThrowInvalidArgException(); }));
    EXPECT_FALSE(stack->addCommand(L"G", L"BAD", L"BAD", 0, [] {}));
  };
  ASSERT_TRUE(session.modules.attach("test", entryPoint).ok());
  type("BAD\nPOINT 1,1\n");
  EXPECT_NE(takePrinted().find("\nApplication error: "), std::string::npos);
  EXPECT_EQ(entities(), std::vector<std::string>{"POINT 1,1"});
}

TEST_F(ModulesTest, DrawingStaysAndModuleStaysWhileItIsOnTheStack) {
  std::string replaced, unloaded, opened;
  attach([&] {
    EXPECT_TRUE(session.modules.onStack());
    replaced = session.newDrawing().message();
    unloaded = session.modules.unload("test").message();
    ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
    opened = session.openDrawing(pathOf("a.dwg")).message();
  });
  evaluate("(testcall)");
  EXPECT_EQ(replaced, "An application is waiting for input; cancel it first");
  EXPECT_EQ(opened, replaced);
  EXPECT_EQ(unloaded, "test: is running and can't be unloaded");
}

TEST_F(ModulesTest, CommandOfAModuleCountsAsOnTheStack) {
  static std::string g_refused;
  g_module = [](AcRx::AppMsgCode message) {
    if (message != AcRx::kInitAppMsg) return;
    auto* stack = static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(kAcadRegisteredCommands));
    stack->addCommand(L"G", L"RUN", L"RUN", 0, [] {
      g_refused = Session::active().newDrawing().message();
      acedDefun(L"fromcommand", 9);
    });
  };
  ASSERT_TRUE(session.modules.attach("test", entryPoint).ok());
  type("RUN\n");
  EXPECT_EQ(g_refused, "An application is waiting for input; cancel it first");
  EXPECT_EQ(evaluate("(type fromcommand)"), "SUBR");
}

TEST_F(ModulesTest, PackageIsKnownToTheServices) {
  void* package = nullptr;
  attach([&] { package = session.modules.currentCall()->package; });
  evaluate("(testcall)");
  auto* linker = static_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(kAcrxDynamicLinker));
  EXPECT_TRUE(linker->registerAppMDIAware(package));
  EXPECT_TRUE(acrxUnlockApplication(package));
  EXPECT_FALSE(linker->registerAppMDIAware(&package));
  EXPECT_FALSE(acrxUnlockApplication(nullptr));
  EXPECT_EQ(acrxSysRegistry()->at(L"nothing"), nullptr);
}

TEST_F(ModulesTest, SendMsgToAcadAnswersTheNextPrompt) {
  attach([] {
    SendMsgToAcad(L"3,4 ignored", 4);
    wchar_t keyword[kAcadTextLimit];
    AcGePoint2d point;
    EXPECT_EQ(GetPoint(nullptr, L"\nPoint: ", 0, point, keyword), RTNORM);
    EXPECT_EQ(point.x, 3);
    EXPECT_EQ(point.y, 4);
  });
  type("(testcall)\n");
}

}  // namespace
}  // namespace drafting
