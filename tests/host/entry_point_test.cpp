// The entry point: what each message of the host does.
#include "embedded/framework/linked_libraries.h"
#include "host/host_fixture.h"
#include "host/module_functions.h"

namespace {

using test::host;
using Texts = std::vector<std::wstring>;

const Texts kRegistered = {L"1 showzhlk", L"2 hidezhlk", L"3 yczhlhz", L"4 zhlmsgmk"};

class EntryPoint : public test::HostFixture {};

TEST_F(EntryPoint, StartDefinesTheGroupAndMakesTheHiddenWindow) {
  send(AcRx::kInitAppMsg);
  EXPECT_EQ(host().unlocked, &package_);
  EXPECT_EQ(host().mdiAware, &package_);
  EXPECT_EQ(host().groups, Texts{L"Vornikplan10:sample:2"});
  ASSERT_NE(libraryWindow(), nullptr);
  EXPECT_FALSE(libraryWindow()->IsVisible());
  EXPECT_TRUE(extensionModule().bInitialized);
}

TEST_F(EntryPoint, StartTakesItsStepsInOrder) {
  send(AcRx::kInitAppMsg);
  EXPECT_EQ(host().steps,
            (Texts{L"AfxInitExtensionModule", L"acrxUnlockApplication", L"registerAppMDIAware",
                   L"TqDefineCommand Vornikplan10 1 0", L"adsw_acadMainWnd"}));
}

TEST_F(EntryPoint, ResourcesAreLinkedFromTheStartToTheEnd) {
  const std::size_t before = framework::linkedLibraries().size();
  send(AcRx::kInitAppMsg);
  EXPECT_EQ(framework::linkedLibraries().size(), before + 1);
  EXPECT_EQ(framework::linkedLibraries().back()->record(), &extensionModule());
  send(AcRx::kUnloadAppMsg);
  EXPECT_EQ(framework::linkedLibraries().size(), before);
}

TEST_F(EntryPoint, ModuleThatCannotBeInitialisedStartsWithoutItsResources) {
  const std::size_t before = framework::linkedLibraries().size();
  host().fail(L"AfxInitExtensionModule");
  EXPECT_EQ(send(AcRx::kInitAppMsg), AcRx::kRetOK);
  EXPECT_EQ(framework::linkedLibraries().size(), before);
  EXPECT_EQ(host().unlocked, &package_);
  EXPECT_EQ(host().groups, Texts{L"Vornikplan10:sample:2"});
  EXPECT_NE(libraryWindow(), nullptr);
  EXPECT_EQ(test::takeTranscript(), L"");
}

TEST_F(EntryPoint, HostsMainWindowIsTakenAtEveryStart) {
  send(AcRx::kInitAppMsg);
  EXPECT_EQ(hostWindow(), nullptr);
  int window = 0;
  host().mainWindow = static_cast<HWND>(static_cast<void*>(&window));
  send(AcRx::kInitAppMsg);  // the library window is there and isn't made anew
  EXPECT_EQ(hostWindow(), host().mainWindow);
}

TEST_F(EntryPoint, SecondStartMakesNoSecondWindow) {
  send(AcRx::kInitAppMsg);
  LibraryWindow* const window = libraryWindow();
  send(AcRx::kInitAppMsg);
  EXPECT_EQ(libraryWindow(), window);
}

TEST_F(EntryPoint, UnloadRemovesTheGroupAndTheWindow) {
  send(AcRx::kInitAppMsg);
  send(AcRx::kUnloadAppMsg);
  EXPECT_TRUE(host().groups.empty());
  EXPECT_EQ(libraryWindow(), nullptr);
  EXPECT_FALSE(extensionModule().bInitialized);
}

TEST_F(EntryPoint, UnloadWithTheWindowGoneStillRemovesTheGroup) {
  send(AcRx::kInitAppMsg);
  libraryWindow()->DestroyWindow();
  send(AcRx::kUnloadAppMsg);
  EXPECT_TRUE(host().groups.empty());
}

TEST_F(EntryPoint, EveryDocumentGetsTheFunctionsWithTheSameCodes) {
  send(AcRx::kLoadDwgMsg);
  EXPECT_EQ(host().defined, kRegistered);
  send(AcRx::kLoadDwgMsg);
  Texts twice = kRegistered;
  twice.insert(twice.end(), kRegistered.begin(), kRegistered.end());
  EXPECT_EQ(host().defined, twice);
}

TEST_F(EntryPoint, RefusedFunctionEndsRegistration) {
  host().fail(L"acedDefun", 3);
  EXPECT_EQ(registerFunctions(), RTERROR);
  EXPECT_EQ(host().defined, (Texts{L"1 showzhlk", L"2 hidezhlk"}));
  EXPECT_EQ(send(AcRx::kLoadDwgMsg), AcRx::kRetOK);
}

TEST_F(EntryPoint, ClosingADocumentRemovesTheFunctions) {
  send(AcRx::kUnloadDwgMsg);
  EXPECT_EQ(host().defined, (Texts{L"-1 showzhlk", L"-2 hidezhlk", L"-3 yczhlhz", L"-4 zhlmsgmk"}));
  EXPECT_EQ(removeFunctions(), RTNORM);
}

TEST_F(EntryPoint, CodesOutsideTheTableRunNothing) {
  send(AcRx::kInitAppMsg);
  for (const int code : {0, 6, -1, 32767}) {
    host().functionCode = code;
    EXPECT_EQ(dispatchFunction(), RTERROR) << code;
    EXPECT_EQ(host().lispValue, L"void") << code;
  }
  EXPECT_FALSE(libraryWindow()->IsVisible());
  EXPECT_TRUE(host().prompts.empty());
  EXPECT_EQ(test::takeTranscript(), L"");
}

TEST_F(EntryPoint, CodeBehindTheLastRowRunsNothing) {
  host().functionCode = 5;
  EXPECT_EQ(dispatchFunction(), 3);
}

TEST_F(EntryPoint, HandlersAreReportedAsFailedAndNobodyLooks) {
  send(AcRx::kInitAppMsg);
  host().functionCode = 1;
  EXPECT_EQ(dispatchFunction(), 3);
}

TEST_F(EntryPoint, ResultIsZeroForEveryMessage) {
  for (int message = -1; message < 40; ++message) {
    EXPECT_EQ(send(message), AcRx::kRetOK) << message;
  }
}

TEST_F(EntryPoint, VersionIsTheHosts) { EXPECT_EQ(acrxGetApiVersion(), kAcadApiVersion); }

}  // namespace
