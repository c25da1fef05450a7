// The library window: a frame owned by the host's main window. Left the page of slides, beside it
// the bar of auxiliary symbols, below the tool bar. Page, selection, grid, mode and geometry live
// in the library store, which the frame holds; the other windows reach it through their parent
// frame. Closing hides; the window is destroyed at unload alone, and deletes itself then.
#pragma once

#include "controls/auxiliary_bar_library.h"
#include "controls/windows/library_bar.h"
#include "library_window/frame_layout.h"
#include "library_window/library_window.h"
#include "library_window/windows/splitter.h"
#include "library_window/windows/tool_bar.h"
#include "platform/framework_frame.h"
#include "platform/framework_gdi.h"
#include "store/library_store.h"

class CSlbView;

class CZhlkMainWnd : public CFrameWnd {
  DECLARE_DYNAMIC(CZhlkMainWnd)

 public:
  // Makes the window, hidden. Without a window class there is none, and a message says so.
  CZhlkMainWnd();
  ~CZhlkMainWnd() override;

  // What the module's commands see of the window; lasts as long as it.
  LibraryWindow& Door() { return m_door; }

  BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
  BOOL DestroyWindow() override { return CFrameWnd::DestroyWindow(); }
  void PostNcDestroy() override;

 protected:
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnCreateClient(CREATESTRUCTW* create, CCreateContext* context) override;

  int OnCreate(CREATESTRUCTW* create);
  void OnSize(UINT type, int width, int height) { CFrameWnd::OnSize(type, width, height); }
  void OnPaint();
  void OnClose();
  void OnDestroy();
  void OnGetMinMaxInfo(MINMAXINFO* info);
  void OnDrawMode() { store.SetMode(0); }
  void OnEditMode() { store.SetMode(1); }
  void OnPrevPage() { turnPage(-1); }
  void OnNextPage() { turnPage(1); }
  void OnToggleAuxBar();
  DECLARE_MESSAGE_MAP()

 private:
  class FrameDoor : public LibraryWindow {
   public:
    explicit FrameDoor(CZhlkMainWnd& frame) : m_frame(frame) {}
    CZhlkLibStore& Store() override { return m_frame.store; }
    int GetFolderCount() override { return m_frame.m_bar.GetFolderCount(); }
    AuxiliaryLibrary* Auxiliary() override { return &m_frame.m_auxiliary; }
    bool IsVisible() const override { return m_frame.IsWindowVisible() != 0; }
    bool IsMinimised() const override { return m_frame.IsIconic() != 0; }
    void ShowWindow(int command) override { m_frame.ShowWindow(command); }
    void UpdateWindow() override { m_frame.UpdateWindow(); }
    bool DestroyWindow() override { return m_frame.DestroyWindow() != 0; }
    void SelectSlot(int slot) override { m_frame.store.SetSelection(slot); }
    bool ChooseItem(int folder, int item) override {
      return m_frame.m_auxiliary.chooseItem(folder, item);
    }

   private:
    CZhlkMainWnd& m_frame;
  };

  bool createWindow();
  void createFont();
  PaneSizes calcPaneSizes();
  void applyPaneSizes();
  void turnPage(int by);
  void chooseGrid();
  void showPage();

  bool m_clientReady = false;
  bool m_constructing = true;
  RECT m_restoreRect{};
  CZhlkToolBar m_toolBar;

 public:
  CZhlkLibStore store;

 private:
  CFont m_font;
  CSplitterWndEx m_splitter;
  CSlbView* m_view = nullptr;  // the splitter's; deletes itself with its window
  CGfxOutBarCtrl m_bar;
  LibraryBar m_shownLibrary{m_bar};
  AuxiliaryLibrary m_auxiliary{m_shownLibrary};
  AuxiliaryBarLibrary m_barLibrary{m_auxiliary};  // what the bar asks
  FrameDoor m_door{*this};
};

// The store of the library window that a child stands in. The child has one above it.
CZhlkLibStore& storeOf(const CWnd& child);

// The stored grid, with counts from 1 to 1,000; a text that is no grid stands for that of a fresh
// library.
Grid usableGrid(CZhlkLibStore& store);
