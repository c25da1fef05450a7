// The desktop's dialogs: files, plot, print scale.
#pragma once

#include <functional>

#include "platform/framework_dialog.h"
#include "programs/desktop/file_commands.h"

// File dialogs and the plot dialog over the frame.
class WindowDialogs : public desktop::Dialogs {
 public:
  explicit WindowDialogs(drafting::Session& session) : session_(session) {}
  std::optional<std::string> askOpen() override;
  std::optional<std::string> askSave(const std::string& suggested) override;
  desktop::PlotAnswer askPlot(desktop::PlotChoices& choices) override;

 private:
  drafting::Session& session_;
};

class PlotDialog : public CDialog {
 public:
  PlotDialog(drafting::Session& session, desktop::PlotChoices& choices);
  desktop::PlotAnswer answer = desktop::PlotAnswer::Cancelled;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnPick();
  void OnBrowse();
  void OnFit();
  DECLARE_MESSAGE_MAP()

 private:
  void SetTexts();
  void TakeChoices();
  bool Checked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id) == BST_CHECKED; }
  void Check(int id, bool on) { ::CheckDlgButton(m_hWnd, id, on ? BST_CHECKED : BST_UNCHECKED); }
  std::string TextOf(int id) const;
  void SetTextOf(int id, std::string_view utf8);

  drafting::Session& session_;
  desktop::PlotChoices& choices_;
};

class ScaleDialog : public CDialog {
 public:
  explicit ScaleDialog(drafting::Session& session);

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;

 private:
  drafting::Session& session_;
};
