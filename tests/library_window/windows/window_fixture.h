// The library window in front of a small host window, with a library of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "embedded/slide_store/slide_writer.h"
#include "library_window/windows/main_window.h"
#include "library_window/windows/slide_view.h"
#include "module/information.h"
#include "module/module_state.h"
#include "platform/framework_app.h"
#include "platform/framework_messages.h"
#include "resources/resource_ids.h"
#include "support/install.h"
#include "support/recording_host.h"
#include "windows/picture.h"
#include "windows/window_script.h"

namespace library_window_test {

// A slide of an upright line and a crossing one, with its own place in the colours.
inline std::string slideOf(int slot) {
  slide_store::SlideWriter writer(240, 640);
  const auto colour = static_cast<std::uint8_t>(1 + slot % 6);
  writer.line({120, 20}, {120, 620}, colour);
  writer.line({40, 100 + slot % 10 * 40}, {200, 100 + slot % 10 * 40}, colour);
  return writer.finish();
}

class LibraryFrame : public testing::Test {
 protected:
  LibraryFrame() {
    test::resetHost();
    host_ = ::CreateWindowExW(0, L"STATIC", L"host", WS_POPUP, 900, 700, 100, 100, nullptr, nullptr,
                              ::GetModuleHandleW(nullptr), nullptr);
    ::ShowWindow(host_, SW_SHOWNA);
    setModuleInstance(::GetModuleHandleW(nullptr));
    setMessageBoxHandler([this](const MessageBoxCall& call) {
      boxes_.push_back(call.text);
      return answer_;
    });
    setHostWindow(host_);
  }
  ~LibraryFrame() override {
    if (libraryWindow()) libraryWindow()->DestroyWindow();
    ::DestroyWindow(host_);
    setHostWindow(nullptr);
    setMessageBoxHandler({});
  }

  // Fills the library's files; before open().
  void fill(int circuits) {
    // A library that says how long it is: the first circuit takes the first slot.
    const std::wstring path = test::Install::wide(install_.library() / "zhllib.qdp");
    CQuillDpData tree;
    tree.SetSubValueW(L"ZHLSY\\长度", 2, L"0", 0);
    tree.WriteDataToQdpFile(path.c_str());
    CZhlkLibStore store;
    for (int slot = 0; slot < circuits; ++slot) {
      const CString name = CZhlkLibStore::CircuitName(slot);
      store.InsertCircuit(slot, rowOf(slot), name);
      const std::string slide = slideOf(slot);
      store.Slides().AddSlideW(name, slide.data(), static_cast<std::uint32_t>(slide.size()));
    }
  }
  static CString rowOf(int slot) {
    return CString(L"(\"" + CZhlkLibStore::NumberText(slot).wide() + L"\" rest)");
  }

  CZhlkMainWnd& open() {
    frame_ = new CZhlkMainWnd;
    setLibraryWindow(&frame_->Door());
    return *frame_;
  }
  // Shows it and handles what that sets off.
  CZhlkMainWnd& show(int circuits = 20) {
    fill(circuits);
    open();
    ShowLibraryWindow();
    ::SetForegroundWindow(frame_->m_hWnd);
    AfxPumpWaitingMessages();
    frame_->UpdateWindow();
    return *frame_;
  }
  void resize(int width, int height) {
    frame_->MoveWindow(60, 40, width, height);
    AfxPumpWaitingMessages();
    ::RedrawWindow(frame_->m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  void close() {
    libraryWindow()->DestroyWindow();
    frame_ = nullptr;
  }

  HWND splitter() const { return ::GetDlgItem(frame_->m_hWnd, AFX_IDW_PANE_FIRST); }
  HWND grid() const { return ::GetDlgItem(splitter(), AFX_IDW_PANE_FIRST); }
  HWND bar() const { return ::GetDlgItem(splitter(), AFX_IDW_PANE_FIRST + 1); }
  HWND toolBar() const {
    return ::GetDlgItem(::GetDlgItem(frame_->m_hWnd, AFX_IDW_DOCKBAR_BOTTOM), AFX_IDW_TOOLBAR);
  }
  HWND control(int id) const { return ::GetDlgItem(toolBar(), id); }
  bool isEnabled(UINT id) const {
    return ::SendMessageW(toolBar(), TB_ISBUTTONENABLED, id, 0) != 0;
  }
  CZhlkLibStore& store() { return frame_->store; }
  void choose(int item) {
    ::SendMessageW(control(ID_GRID), CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    ::SendMessageW(toolBar(), WM_COMMAND, MAKEWPARAM(ID_GRID, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(control(ID_GRID)));
  }
  void command(UINT id) { frame_->SendMessage(WM_COMMAND, id); }
  CRect client(HWND window) const {
    CRect rect;
    ::GetClientRect(window, rect);
    return rect;
  }
  // With the window's own edge.
  static int widthOf(HWND window) {
    CRect rect;
    ::GetWindowRect(window, rect);
    return rect.Width();
  }
  // Inside of the cell of a page's slot, counted within the page.
  CPoint cellCentre(int cell) {
    const Grid size = usableGrid(store());
    const CRect area = client(grid());
    const int width = area.Width() / size.columns;
    const int height = area.Height() / size.rows;
    return {cell % size.columns * width + width / 2, cell / size.columns * height + height / 2};
  }
  void click(CPoint at) {
    ::SendMessageW(grid(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  }
  std::wstring title() const {
    CString text;
    frame_->GetWindowText(text);
    return text.wide();
  }

  test::Install install_;
  std::vector<std::wstring> boxes_;  // texts of message boxes
  int answer_ = kMessageAnswerOk;    // to each of them
  HWND host_ = nullptr;
  CZhlkMainWnd* frame_ = nullptr;
};

}  // namespace library_window_test
