// Modal dialogs from the module's resources.
#include "embedded/framework/windows/kit.h"
#include "platform/framework_controls.h"
#include "platform/framework_dialog.h"
#include "platform/framework_exceptions.h"
#include "resources/resource_ids.h"
#include "windows/window_script.h"

namespace {

using framework_test::numbers;
using window_kit::WindowScript;

class CircuitDialog : public CDialog {
 public:
  explicit CircuitDialog(CWnd* parent) : CDialog(IDD_CIRCUIT, parent) {}
  CButton refresh;
  int refreshed = 0;
  bool failing = false;
  bool endAtOnce = false;

 protected:
  void DoDataExchange(CDataExchange* exchange) override {
    DDX_Control(exchange, IDC_PICKER_REFRESH, refresh);
  }
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    if (failing) AfxThrowInvalidArgException();
    if (endAtOnce) EndDialog(77);
    return TRUE;
  }
  void onRefresh() { ++refreshed; }
  DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CircuitDialog, CDialog)
ON_BN_CLICKED(IDC_PICKER_REFRESH, onRefresh)
END_MESSAGE_MAP()

class Dialogs : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(resources_.loaded());
    frame_ = new CFrameWnd;
    ASSERT_TRUE(frame_->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, {100, 60, 900, 760}));
    framework_test::showInFront(*frame_);
  }
  void TearDown() override { frame_->DestroyWindow(); }

  // Runs the dialog with the steps that `queue` adds behind its appearing.
  template <typename Queue>
  INT_PTR run(CircuitDialog& dialog, Queue queue) {
    INT_PTR result = 0;
    WindowScript script;
    script.translate([](MSG* message) { return AfxPreTranslateMessage(message); });
    script.onFailure([&dialog] { dialog.EndDialog(-2); });
    script.then([&] { result = dialog.DoModal(); });
    script.waitFor("the dialog", [&dialog] { return dialog.m_hWnd && dialog.IsWindowVisible(); });
    queue(script);
    script.waitFor("its end", [&dialog] { return dialog.m_hWnd == nullptr; });
    EXPECT_EQ(script.run(), "");
    return result;
  }

  framework_test::ModuleResources resources_;
  CFrameWnd* frame_ = nullptr;
};

TEST_F(Dialogs, TheResourceGivesTitleAndControls) {
  CircuitDialog dialog(frame_);
  run(dialog, [&](WindowScript& script) {
    script.then([&] {
      CString title;
      dialog.GetWindowText(title);
      EXPECT_EQ(title, L"主回路构造");
      const struct {
        int id;
        CRect units;  // left, top, width, height
        DWORD style;
      } controls[] = {{IDOK, {99, 213, 36, 16}, 0x50010000},
                      {IDCANCEL, {137, 213, 36, 16}, 0x50010001},
                      {IDC_PICKER_PREVIOUS_PAGE, {161, 173, 38, 13}, 0x50010000},
                      {IDC_PICKER_REFRESH, {98, 173, 40, 13}, 0x50010000},
                      {IDC_PICKER_NEXT_PAGE, {199, 173, 38, 13}, 0x50010000},
                      {IDC_CIRCUIT_HELP, {205, 213, 33, 16}, 0x50010000},
                      {IDC_CIRCUIT_FRAME, {3, 0, 87, 232}, 0x50000007},
                      {IDC_PICKER_GRID, {98, 11, 139, 159}, 0x50000004}};
      for (const auto& expected : controls) {
        const CWnd* control = dialog.GetDlgItem(expected.id);
        ASSERT_NE(control, nullptr) << expected.id;
        // The system maps place and size each for itself.
        CRect place(0, 0, expected.units.left, expected.units.top);
        CRect size(0, 0, expected.units.right, expected.units.bottom);
        ::MapDialogRect(dialog.m_hWnd, place);
        ::MapDialogRect(dialog.m_hWnd, size);
        CRect rect(place.right, place.bottom, place.right + size.right, place.bottom + size.bottom);
        EXPECT_EQ(numbers(framework_test::rectInParent(*control)), numbers(rect)) << expected.id;
        EXPECT_EQ(control->GetStyle(), expected.style) << expected.id;
      }
    });
    script.key(VK_ESCAPE);
  });
}

TEST_F(Dialogs, EscCancels) {
  CircuitDialog dialog(frame_);
  EXPECT_EQ(run(dialog, [](WindowScript& script) { script.key(VK_ESCAPE); }), IDCANCEL);
}

TEST_F(Dialogs, EnterPressesTheButtonWithTheFocus) {
  for (const int button : {IDOK, IDCANCEL}) {
    CircuitDialog dialog(frame_);
    EXPECT_EQ(run(dialog,
                  [&](WindowScript& script) {
                    script.then([&] {
                      const HWND control = ::GetDlgItem(dialog.m_hWnd, button);
                      dialog.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
                    });
                    script.key(VK_RETURN);
                  }),
              button);
  }
}

TEST_F(Dialogs, AClickOnOkEndsWithItsNumber) {
  CircuitDialog dialog(frame_);
  EXPECT_EQ(run(dialog,
                [&dialog](WindowScript& script) {
                  script.then([&] { dialog.GetDlgItem(IDOK)->SendMessage(BM_CLICK); });
                }),
            IDOK);
}

TEST_F(Dialogs, BoundControlsNotifyTheirDialog) {
  CircuitDialog dialog(frame_);
  run(dialog, [&dialog](WindowScript& script) {
    script.then([&] {
      EXPECT_EQ(dialog.refresh.m_hWnd, ::GetDlgItem(dialog.m_hWnd, IDC_PICKER_REFRESH));
      dialog.refresh.SendMessage(BM_CLICK);
      EXPECT_EQ(dialog.refreshed, 1);
    });
    script.key(VK_ESCAPE);
  });
  EXPECT_EQ(dialog.refresh.m_hWnd, nullptr) << "the control ended with the dialog";
}

TEST_F(Dialogs, TheOwnerIsDisabledMeanwhile) {
  CircuitDialog dialog(frame_);
  run(dialog, [this](WindowScript& script) {
    script.then([this] { EXPECT_FALSE(frame_->IsWindowEnabled()); }).key(VK_ESCAPE);
  });
  EXPECT_TRUE(frame_->IsWindowEnabled());
  EXPECT_EQ(::GetActiveWindow(), frame_->m_hWnd);
}

TEST_F(Dialogs, ADialogWithoutAPlaceStandsInTheMiddleOfItsOwner) {
  CircuitDialog dialog(frame_);
  run(dialog, [&](WindowScript& script) {
    script.then([&] {
      CRect own;
      dialog.GetWindowRect(own);
      CRect around;
      frame_->GetWindowRect(around);
      EXPECT_EQ(own.left, around.left + (around.Width() - own.Width()) / 2);
      EXPECT_EQ(own.top, around.top + (around.Height() - own.Height()) / 2);
    });
    script.key(VK_ESCAPE);
  });
}

TEST_F(Dialogs, AnExceptionAtTheStartIsReportedAndTheDialogGoesOn) {
  framework_test::BoxLog boxes;
  CircuitDialog dialog(frame_);
  dialog.failing = true;
  EXPECT_EQ(run(dialog, [](WindowScript& script) { script.key(VK_ESCAPE); }), IDCANCEL);
  EXPECT_EQ(boxes.texts.size(), 1U);
}

TEST_F(Dialogs, ADialogMayEndBeforeItIsShown) {
  CircuitDialog dialog(frame_);
  dialog.endAtOnce = true;
  EXPECT_EQ(dialog.DoModal(), 77);
}

TEST_F(Dialogs, AMissingResourceGivesMinusOne) {
  CDialog dialog(4711, frame_);
  EXPECT_EQ(dialog.DoModal(), -1);
  EXPECT_TRUE(frame_->IsWindowEnabled());
}

}  // namespace
