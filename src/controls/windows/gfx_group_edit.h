// The edit box over a folder's header or an item's label. It tells its owner the text when it loses
// the focus, unless Esc ended it or nothing is left of the text; it grows with an item's text, and
// deletes itself with its window.
#pragma once

#include "controls/bar_commands.h"
#include "platform/framework_controls.h"

class CGfxGroupEdit : public CEdit {
 public:
  // Of the folder or item; `line`: the label stands on one line.
  CGfxGroupEdit(int labelIndex, bool line) : index(labelIndex), noWrap_(line) {}

  BOOL PreTranslateMessage(MSG* message) override;

  CString text;  // the final one, for the owner
  unsigned notification = BARN_FOLDERRENAME;
  int index;

 protected:
  int OnCreate(CREATESTRUCTW* create);
  void OnChar(UINT key, UINT repeat, UINT flags);
  void OnKillFocus(CWnd* next);
  void PostNcDestroy() override;
  DECLARE_MESSAGE_MAP()

 private:
  void grow();

  bool cancelled_ = false;
  bool noWrap_;
};
