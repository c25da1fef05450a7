// CommandWindow: the strip below the drawing area: what the command line printed, its prompt, and
// the box in which one types.
#pragma once

#include "platform/framework_control_bar.h"
#include "platform/framework_controls.h"
#include "programs/desktop/desktop.h"

class CommandWindow : public CControlBar {
 public:
  explicit CommandWindow(desktop::Desktop& desktop) : desktop_(desktop) {}
  ~CommandWindow() override;
  BOOL Create(CWnd* frame, CFont* font);

  void Refresh();
  void FocusInput() { input_.SetFocus(); }
  bool OwnsInput(HWND window) const { return window == input_.m_hWnd; }
  bool IsEmpty() const { return ::GetWindowTextLengthW(input_.m_hWnd) == 0; }
  // A key of the box: Enter, a blank that ends the input, arrows, Tab. True: taken.
  bool TakeKey(UINT virtualKey);
  bool TakeBlank();
  void Clear() { input_.SetWindowText(L""); }
  // A character typed elsewhere goes into the box.
  void Type(wchar_t character);
  void ToggleHeight();  // a few lines, or half of the frame
  bool IsTall() const { return tall_; }

  CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
  void OnUpdateCmdUI(CFrameWnd*, BOOL) override {}

 protected:
  void OnSize(UINT type, int width, int height);
  DECLARE_MESSAGE_MAP()

 private:
  std::string Typed() const;
  void Show(const std::string& text);
  void Submit();
  void Complete();
  void AppendHistory(const std::string& lines);
  void PlaceChildren();
  int TextWidth(const std::wstring& text) const;

  desktop::Desktop& desktop_;
  CEdit history_, input_;
  CStatic prompt_;
  std::wstring shownPrompt_;
  std::string completedFrom_;  // what was typed when Tab was pressed first
  int row_ = 16;
  bool tall_ = false;
};
