// An auxiliary library over a bar without windows that notes what it is told, in an install of the
// test's own with three groups.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "auxiliary/auxiliary_library.h"
#include "controls/windowless_bar.h"
#include "platform/framework_messages.h"
#include "platform/slide_store.h"
#include "support/install.h"
#include "support/raises.h"
#include "support/recording_host.h"
#include "support/transcript.h"

namespace auxiliary_test {

using Names = std::vector<std::wstring>;
using Log = std::vector<std::wstring>;

inline Names namesOf(const CStringArray& array) {
  Names all;
  for (const CString& name : array) all.push_back(name.wide());
  return all;
}

class NotingBar : public WindowlessBar {
 public:
  Log log;
  int answer = kMessageAnswerOk;
  std::vector<int> iconListsMade;  // icons expected in each pair

  void setAnimation(int folderStep, int itemInterval) override {
    log.push_back(L"animation " + std::to_wstring(folderStep) + L" " +
                  std::to_wstring(itemInterval));
  }
  void selectFolder(int folder) override {
    log.push_back(L"select " + std::to_wstring(folder));
    WindowlessBar::selectFolder(folder);
  }
  void removeItem(int folder, int item) override {
    log.push_back(L"remove item " + std::to_wstring(item));
    WindowlessBar::removeItem(folder, item);
  }
  void makeIconLists(int expected) override {
    iconListsMade.push_back(expected);
    WindowlessBar::makeIconLists(expected);
  }
  void dropIconLists() override {
    log.push_back(L"drop icon lists");
    WindowlessBar::dropIconLists();
  }
  void repaint() override { log.push_back(L"all"); }
  void repaintItems() override { log.push_back(L"items"); }
  void repaintHeader(int folder) override { log.push_back(L"header " + std::to_wstring(folder)); }
  int ask(const std::wstring& text, const std::wstring& caption, unsigned style) override {
    log.push_back(caption + L"|" + text + L"|" + std::to_wstring(style));
    return answer;
  }
  void notice(const std::wstring& text) override { log.push_back(text); }

  Names titles() const {
    Names all;
    for (int i = 0; i < folderCount(); ++i) all.push_back(folderName(i));
    return all;
  }
  Names labels(int folder) const {
    Names all;
    for (int i = 0; i < itemCount(folder); ++i) all.push_back(itemLabel(folder, i));
    return all;
  }
  int image(int folder, int item) const { return folders().folder(folder).item(item).image; }
};

class LibraryFixture : public testing::Test {
 protected:
  LibraryFixture() {
    test::resetHost();
    addGroup(L"仪表", L"fzgn0001",
             {{L"仪表-1", L"FG001001"}, {L"仪表-2", L"FG001002"}, {L"仪表-3", L"FG001003"}});
    addGroup(L"信号", L"fzgn0002", {{L"灯", L"FG002001"}});
    addGroup(L"接地", L"fzgn0003", {});
    values_.emplace_back(L"索引", L"仪表&信号&接地&");
    putAll(values_);
  }

  std::filesystem::path file(const std::string& name) const { return install_.library() / name; }
  bool exists(const std::string& name) const { return std::filesystem::exists(file(name)); }
  std::wstring libraryFolder() const {
    return test::Install::wide(install_.root()) + L"\\Datcom\\zhllib\\";
  }
  std::wstring storePath() const { return test::Install::wide(file("zhlFzgn.qdp")); }

  using Values = std::vector<std::pair<std::wstring, std::wstring>>;
  void putAll(const Values& values) {
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(storePath().c_str());
    for (const auto& [key, text] : values) {
      tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0);
    }
    tree.WriteDataToQdpFile(storePath().c_str());
  }
  void put(const std::wstring& key, const std::wstring& text) { putAll({{key, text}}); }
  static void addSlide(const std::wstring& path, const std::wstring& name) {
    CSlbMan slides;
    slides.OnOpenDocument(path.c_str());
    ASSERT_NE(slides.AddSlideW(name.c_str(), "a slide", 7), 0);
    ASSERT_NE(slides.SaveModified(), 0);
  }
  bool hasSlide(const std::wstring& directory, const wchar_t* name) const {
    CSlideLibraryData slides;
    slides.ReadDataFromFileW(
        test::Install::wide(install_.library() / directory / (directory + L".slb")));
    return slides.GetIndexFromName(name) != kNoSlide;
  }

  AuxiliaryLibrary& library() {
    if (!library_) library_.emplace(bar_);
    return *library_;
  }
  // Loaded, and nothing noted yet.
  AuxiliaryLibrary& loaded() {
    if (!library_) library().LoadStore();
    bar_.log.clear();
    return library();
  }
  // In the tree in memory.
  std::wstring value(const std::wstring& key) {
    const CQuillDpNode* node = library().store().tree().GetSubValueFromPathW(0, key.c_str());
    return node && node->length > 0 ? node->text() : L"(none)";
  }
  int lengthOf(const std::wstring& key) {
    const CQuillDpNode* node = library().store().tree().GetSubValueFromPathW(0, key.c_str());
    return node ? node->length : -1;
  }
  std::wstring inFile(const std::wstring& key) const {
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(storePath().c_str());
    const CQuillDpNode* node = tree.GetSubValueFromPathW(0, key.c_str());
    return node && node->length > 0 ? node->text() : L"(none)";
  }

  test::Install install_;
  NotingBar bar_;
  std::optional<AuxiliaryLibrary> library_;

 private:
  // The group's values, its folder, and a drawing and a slide of each item (label, block name).
  void addGroup(const std::wstring& title, const std::wstring& directory, const Values& items) {
    const std::wstring group = L"数据\\" + title;
    values_.emplace_back(group + L"\\类型", L"0");
    values_.emplace_back(group, directory);
    const std::filesystem::path folder = install_.library() / directory;
    std::filesystem::create_directory(folder);
    const std::wstring path = test::Install::wide(folder / (directory + L".slb"));
    CreateEmptySlideLibrary(path.c_str());
    CSlbMan slides;
    slides.OnOpenDocument(path.c_str());
    std::wstring labels;
    const std::wstring blocks = group + L"\\数据\\";
    for (const auto& [label, block] : items) {
      labels.append(label).append(L"&");
      values_.emplace_back(blocks + label, block);
      test::writeBytes(folder / (block + L".dwg"), "a drawing");
      slides.AddSlideW(block.c_str(), "a slide", 7);
    }
    slides.SaveModified();
    if (!items.empty()) values_.emplace_back(group + L"\\索引", labels);
  }

  Values values_;  // of the store
};

}  // namespace auxiliary_test
