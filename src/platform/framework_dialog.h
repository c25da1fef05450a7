// Modal dialogs from a module's resource, and the exchange of data with their controls.
#pragma once

#include "platform/framework_window.h"

// One run of DoDataExchange.
class CDataExchange {
 public:
  CDataExchange(CWnd* dialog, BOOL saving) : m_pDlgWnd(dialog), m_bSaveAndValidate(saving) {}
  CWnd* m_pDlgWnd;
  BOOL m_bSaveAndValidate;  // true: from controls to members
};

// Binds a member to a control, at the first run; the member is the control's object from then on.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);

class CDialog : public CWnd {
  DECLARE_DYNAMIC(CDialog)

 public:
  // The resource is looked up when the dialog is shown. A null parent means the main window, or
  // what was last active above it.
  explicit CDialog(UINT templateId, CWnd* parent = nullptr);

  // Shows the dialog and pumps until EndDialog; its owner and the main window are disabled
  // meanwhile. The end's result, or -1 when the dialog can't be made.
  virtual INT_PTR DoModal();
  void EndDialog(int result);

  // Runs the data exchange towards the controls. False: the dialog has set the focus itself.
  virtual BOOL OnInitDialog();
  BOOL PreTranslateMessage(MSG* message) override;
  BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

 protected:
  virtual void OnOK();  // takes the data over and ends the dialog with IDOK
  virtual void OnCancel();
  DECLARE_MESSAGE_MAP()

 private:
  static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool createFromResource(HWND parent);
  void centre(HWND owner);
  void pump();

  UINT m_nTemplateID;
  CWnd* m_pParentWnd;
  bool m_bRunning = false;
  int m_nResult = -1;
};
