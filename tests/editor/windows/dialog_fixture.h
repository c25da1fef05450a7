// The editing dialog over the sample library, driven by scripts of real input.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "editor/windows/dialog_hand.h"
#include "embedded/drafting/documents/session.h"
#include "embedded/framework/windows/kit.h"
#include "samples/generator/install.h"
#include "store/library_store.h"
#include "support/install.h"

namespace test {

// A file that is elsewhere while this object lives.
class MovedAway {
 public:
  explicit MovedAway(std::filesystem::path file) : file_(std::move(file)) {
    std::filesystem::rename(file_, away());
  }
  ~MovedAway() { std::filesystem::rename(away(), file_); }
  MovedAway(const MovedAway&) = delete;
  MovedAway& operator=(const MovedAway&) = delete;

 private:
  std::filesystem::path away() const { return file_.wstring() + L".away"; }
  std::filesystem::path file_;
};

class DialogFixture : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    setVariable("VORNIK_INFORMATION", *folder_ / "information.txt");
    const base::Status made = samples::makeInstall(*folder_ / "install", [](std::string_view) {});
    ASSERT_TRUE(made.ok()) << made.message();
    ASSERT_TRUE(samples::useInstall(*folder_ / "install").ok());
  }
  static void TearDownTestSuite() { folder_.reset(); }

  void SetUp() override {
    session_.line.output = [](std::string_view) {};
    PickerPosition().save(0, 0);
    ASSERT_TRUE(resources_.loaded());
    frame_ = new CFrameWnd;
    ASSERT_TRUE(frame_->Create(nullptr, L"", WS_OVERLAPPEDWINDOW, {40, 20, 900, 700}));
    framework_test::showInFront(*frame_);
  }
  void TearDown() override {
    dialog_.reset();
    frame_->DestroyWindow();
  }

  // --- the library ---
  static std::filesystem::path library() { return *folder_ / "install" / "Dwglib"; }
  static CString rowOf(int slot) {
    CZhlkLibStore store;
    CString row;
    store.GetRowAt(slot, row);
    return row;
  }
  static CString freeCircuit() { return rowOf(1000); }
  static std::vector<std::wstring> symbols() { return sampleSymbols(*folder_ / "install"); }

  // --- the dialog ---
  void open(const CString& row, const CString& name, std::uint16_t slot) {
    dialog_ = std::make_unique<CZHlkhlbjDlg>(frame_);
    dialog_->row = row;
    dialog_->name = name;
    dialog_->slot = slot;
  }
  // Runs the dialog with the steps that `queue` adds behind its appearing; they end it.
  template <typename Queue>
  INT_PTR run(Queue queue) {
    INT_PTR result = 0;
    window_kit::WindowScript script;
    script.translate([](MSG* message) { return AfxPreTranslateMessage(message); });
    script.onFailure([this] { dialog_->EndDialog(-2); });
    script.then([&] { result = dialog_->DoModal(); });
    script.waitFor("the dialog", [this] { return dialog_->m_hWnd && dialog_->IsWindowVisible(); });
    script.then([this] { dialog_->UpdateWindow(); });
    queue(script);
    script.waitFor("its end", [this] { return dialog_->m_hWnd == nullptr; });
    EXPECT_EQ(script.run(), "");
    return result;
  }
  HWND view() const { return hand_.view(); }
  bool isEnabled(int id) const { return ::IsWindowEnabled(hand_.control(id)) != 0; }
  void press(window_kit::WindowScript& script, int id) { hand_.press(script, id); }
  void clickPickerCell(window_kit::WindowScript& script, int column, int row) {
    hand_.pick(script, row * kPickerSide + column);
  }
  void clickCircuitCell(window_kit::WindowScript& script, std::uint16_t index) {
    hand_.click(script, index);
  }
  void rightClickCircuitCell(window_kit::WindowScript& script, std::uint16_t index) {
    hand_.rightClick(script, index);
  }
  std::vector<std::uint32_t> pickerPixels() const {
    const auto picture = window_kit::pictureOf(dialog_->m_hWnd);
    std::vector<std::uint32_t> pixels;
    const CRect area = hand_.pickerArea();
    for (int y = area.top; y < area.bottom; ++y) {
      for (int x = area.left; x < area.right; ++x) pixels.push_back(picture.at(x, y));
    }
    return pixels;
  }

  // --- the circuit ---
  ZhlkElement block(std::uint16_t index) const {
    ZhlkElement element;
    dialog_->record.ReadElement(index, element, kBlockElement);
    return element;
  }
  std::wstring blockName(std::uint16_t index) const { return block(index).blockName.wide(); }

  static std::unique_ptr<TempFolder> folder_;
  drafting::Session session_;
  framework_test::ModuleResources resources_;
  framework_test::BoxLog boxes_;
  CFrameWnd* frame_ = nullptr;
  std::unique_ptr<CZHlkhlbjDlg> dialog_;
  DialogHand hand_{[this] { return dialog_.get(); }};
};

inline std::unique_ptr<TempFolder> DialogFixture::folder_;

}  // namespace test
