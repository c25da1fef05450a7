// CZHlkhlbjDlg: the modal dialog in which one circuit is built. On its left the circuit, on its
// right the symbol picker. The caller sets slot, row and name; after IDOK the record has the edited
// circuit and its slide. Nothing is saved but the picker's place.
#pragma once

#include <cstdint>

#include "editor/picker_position.h"
#include "editor/symbol_picker.h"
#include "editor/windows/edit_view.h"
#include "platform/framework_controls.h"
#include "platform/framework_dialog.h"
#include "platform/slide_store.h"
#include "store/circuit_record.h"

class CZHlkhlbjDlg : public CDialog {
 public:
  explicit CZHlkhlbjDlg(CWnd* parent = nullptr);

  CString row;
  CString name;  // empty for a free slot: the dialog then names it
  std::uint16_t slot = 0;
  CZhlkCircuitRecord record;

  const CString& CurrentSymbol() const { return picker_.current(); }

 protected:
  void DoDataExchange(CDataExchange* exchange) override;
  BOOL OnInitDialog() override;
  void OnOK() override;

  void OnPaint();
  void OnLButtonDown(UINT flags, CPoint point);
  void OnPreviousPage();
  void OnNextPage();
  void OnRefresh();
  DECLARE_MESSAGE_MAP()

 private:
  void loadPicker();
  void nameFreeSlot();
  void openView();
  CRect clientRectOf(int id) const;
  void drawPicker(CDC& dc);
  void drawSymbols();
  void enablePageButtons();
  void mark(CDC& dc, std::int32_t symbol);
  void turnPage(int by);
  void repaintPicker(BOOL erase);
  void tell(const std::wstring& message);

  CButton frame_;
  CButton refresh_;
  CButton next_;
  CButton previous_;
  CGraph graph_;
  PickerPosition position_;
  SymbolPicker picker_;
  CRect area_;  // of the picker's grid, client pixels
  CZHlkEditView view_;
};
