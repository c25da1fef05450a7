// A library in a folder of the test's own, whose tree can be looked at and changed from outside.
#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "platform/framework_exceptions.h"
#include "store/library_store.h"
#include "support/install.h"
#include "support/raises.h"
#include "support/transcript.h"

namespace test {

class StoreFixture : public testing::Test {
 protected:
  StoreFixture() { open(); }

  void open() {
    store_.reset();
    store_.emplace();
  }

  // Writes keys into the file, and opens the library anew.
  void put(const std::vector<std::pair<std::wstring, std::wstring>>& values) {
    store_.reset();
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(path().c_str());
    for (const auto& [key, text] : values) {
      tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0);
    }
    tree.WriteDataToQdpFile(path().c_str());
    store_.emplace();
  }

  // The value of a key in the file after Save; "(none)" for no node or no value.
  std::wstring saved(const std::wstring& key) {
    store_->Save();
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(path().c_str());
    const CQuillDpNode* node = tree.GetSubValueFromPathW(0, key.c_str());
    return node && node->length > 0 ? node->text() : L"(none)";
  }
  bool hasKey(const std::wstring& key) {
    store_->Save();
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(path().c_str());
    return tree.GetSubValueFromPathW(0, key.c_str()) != nullptr;
  }

  std::wstring path() const { return Install::wide(install_.library() / "zhllib.qdp"); }

  Install install_;
  std::optional<CZhlkLibStore> store_;
};

}  // namespace test
