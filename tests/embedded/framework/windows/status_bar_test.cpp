// Status bars, and the dialogs that ask for a file.
#include <filesystem>
#include <fstream>

#include "embedded/framework/windows/kit.h"
#include "platform/framework_file_dialog.h"
#include "platform/framework_status_bar.h"
#include "support/temp_folder.h"
#include "windows/window_script.h"

namespace {

using framework_test::Log;
using framework_test::showInFront;
using window_kit::WindowScript;

constexpr UINT kScale = 40001;
constexpr UINT kPanes[] = {0, 0, kScale};

class StatusFrame : public CFrameWnd {
 public:
  CStatusBar status;
  Log log;

 protected:
  int OnCreate(CREATESTRUCTW* create) {
    if (CFrameWnd::OnCreate(create) == -1 || !status.Create(this)) return -1;
    status.SetIndicators(kPanes, 3);
    status.SetPaneWidth(1, 80);
    status.SetPaneWidth(2, 60);
    return 0;
  }
  void onScale() { log.push_back("scale"); }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(StatusFrame, CFrameWnd)
ON_WM_CREATE()
ON_COMMAND(kScale, onScale)
END_MESSAGE_MAP()

class StatusBar : public testing::Test {
 protected:
  StatusBar() : frame(new StatusFrame) {
    EXPECT_TRUE(frame->Create(nullptr, L"status", WS_OVERLAPPEDWINDOW, {20, 20, 420, 220}));
    showInFront(*frame);
  }
  ~StatusBar() override { frame->DestroyWindow(); }
  CRect pane(int index) const {
    CRect place;
    frame->status.GetItemRect(index, place);
    return place;
  }
  StatusFrame* frame;
};

TEST_F(StatusBar, LiesAtTheLowerEdgeAndTheFirstPaneTakesTheRest) {
  CRect bar;
  CRect room;
  frame->status.GetWindowRect(bar);
  frame->ScreenToClient(bar);
  frame->GetClientRect(room);
  EXPECT_EQ(bar.bottom, room.bottom);
  EXPECT_EQ(bar.Width(), room.Width());
  EXPECT_NEAR(pane(1).Width(), 80, 4);
  EXPECT_NEAR(pane(2).Width(), 60, 4);
  EXPECT_NEAR(pane(0).Width(), room.Width() - 140, 6);
}

TEST_F(StatusBar, FollowsTheFramesWidth) {
  frame->MoveWindow(20, 20, 600, 300);
  CRect room;
  frame->GetClientRect(room);
  EXPECT_NEAR(pane(2).right, room.right, 4);
  EXPECT_NEAR(pane(0).Width(), room.Width() - 140, 6);
}

TEST_F(StatusBar, KeepsItsTexts) {
  EXPECT_TRUE(frame->status.SetPaneText(1, L"1:100"));
  EXPECT_TRUE(frame->status.SetPaneText(1, L"1:50"));
  EXPECT_EQ(frame->status.GetPaneText(1), L"1:50");
  EXPECT_FALSE(frame->status.SetPaneText(3, L"none"));
  EXPECT_EQ(frame->status.GetPaneText(3), L"");
}

TEST_F(StatusBar, AClickOnAPaneIsItsCommand) {
  const CRect scale = pane(2);
  WindowScript script;
  script.click(frame->status.m_hWnd, scale.left + 10, scale.top + 5);
  script.click(frame->status.m_hWnd, 5, scale.top + 5);
  EXPECT_EQ(script.then([] {}).run(), "");
  EXPECT_EQ(frame->log, Log{"scale"});
}

class FileDialog : public StatusBar {
 protected:
  static HWND dialog() {
    const HWND found = ::FindWindowW(L"#32770", nullptr);
    return found && ::IsWindowVisible(found) ? found : nullptr;
  }
  // Shows it, does the steps and returns what came of it.
  INT_PTR show(CFileDialog& asked, WORD key, const std::wstring& name) {
    constexpr int kName = 0x47C;
    INT_PTR result = 0;
    WindowScript steps;
    steps.patience(10'000).onFailure([] { ::PostMessageW(dialog(), WM_COMMAND, IDCANCEL, 0); });
    steps.then([&] { result = asked.DoModal(); });
    steps.waitFor("the dialog", [] { return dialog() && ::GetDlgItem(dialog(), kName); });
    steps.then([&] { ::SetDlgItemTextW(dialog(), kName, name.c_str()); });
    steps.then([key] { ::PostMessageW(dialog(), WM_COMMAND, key, 0); });
    steps.waitFor("its end", [] { return !dialog(); });
    EXPECT_EQ(steps.run(), "");
    return result;
  }
  test::TempFolder folder_;
};

TEST_F(FileDialog, GivesTheWholePathWithTheExtension) {
  CFileDialog asked(FALSE, L"dwg", L"", 0, L"Drawings|*.dwg||", frame);
  EXPECT_EQ(show(asked, IDOK, (folder_.path() / L"图").wstring()), IDOK);
  EXPECT_EQ(asked.GetPathName(), (folder_.path() / L"图.dwg").wstring().c_str());
}

TEST_F(FileDialog, OpensWhatIsThere) {
  const std::filesystem::path file = folder_.path() / "a.dwg";
  std::ofstream(file) << "x";
  CFileDialog asked(TRUE, L"dwg", L"", 0, L"Drawings|*.dwg||", frame);
  EXPECT_EQ(show(asked, IDOK, file.wstring()), IDOK);
  EXPECT_EQ(asked.GetPathName(), file.wstring().c_str());
}

TEST_F(FileDialog, GivenUpItNamesNothing) {
  CFileDialog asked(FALSE, L"dwg", L"a.dwg", 0, L"Drawings|*.dwg||", frame);
  EXPECT_EQ(show(asked, IDCANCEL, L"b.dwg"), IDCANCEL);
  EXPECT_EQ(asked.GetPathName(), L"");
}

}  // namespace
