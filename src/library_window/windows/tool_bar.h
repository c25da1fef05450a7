// The library window's tool bar: two radio buttons for the mode, a list for the grid, and the
// buttons of its resource. It never floats: a double click and the mouse's movement end here.
#pragma once

#include "platform/framework_control_bar.h"
#include "platform/framework_controls.h"

class CZhlkLibStore;

class CZhlkToolBar : public CToolBar {
 public:
  CZhlkToolBar() = default;

  // Makes the controls in the places of the first three items. False as soon as one fails; those
  // made before stay.
  bool CreateControls();
  // What the mode and the shown page make of the controls.
  void Update(CZhlkLibStore& store);
  void SelectGridItem(int item) { m_grid.SetCurSel(item); }
  int GridItem() const { return m_grid.GetCurSel(); }
  void SetControlFont(CFont* font);

 protected:
  void OnLButtonDown(UINT flags, CPoint point);
  void OnLButtonDblClk(UINT, CPoint) {}
  void OnMouseMove(UINT, CPoint) {}
  void OnDrawMode();
  void OnEditMode();
  DECLARE_MESSAGE_MAP()

 private:
  CRect placeOf(int index, UINT id, int width);

  CButton m_draw;
  CButton m_edit;
  CComboBox m_grid;
};
