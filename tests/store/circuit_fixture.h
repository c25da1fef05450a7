// A circuit record in an install of the test's own, with a symbol library of a few slides.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

#include "platform/framework_runtime.h"
#include "platform/slide_store.h"
#include "store/circuit_record.h"
#include "support/install.h"
#include "support/shapes.h"
#include "support/temp_folder.h"
#include "support/transcript.h"

namespace test {

class CircuitFixture : public testing::Test {
 protected:
  CircuitFixture() { open(); }

  void open() { record_.emplace(); }

  // Writes the directory file, and opens a record anew.
  void putIndex(std::string_view records) {
    writeBytes(install_.symbols() / "dwgdir.dab", records);
    open();
  }
  // A slide of the symbol in folder 0001, the bytes counted from the name's first character on.
  std::string putSlide(const wchar_t* symbol, std::size_t size) {
    std::filesystem::create_directories(install_.symbols() / "dqbl0001");
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
      bytes[i] = static_cast<char>(static_cast<std::size_t>(symbol[0]) + i);
    CSlbMan library;
    library.OnOpenDocument(symbolPath(L"dqbl0001\\dqbl0001.slb").c_str());
    library.AddSlideW(symbol, bytes.data(), static_cast<std::uint32_t>(size));
    EXPECT_EQ(library.SaveModified(), 1);
    return bytes;
  }
  std::wstring symbolPath(const std::wstring& below) const {
    return Install::wide(install_.symbols()) + L"\\" + below;
  }

  void put(const std::vector<std::pair<std::wstring, std::wstring>>& values) {
    for (const auto& [key, text] : values) {
      record_->tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(text.size() + 1),
                                 text.c_str(), 0);
    }
  }
  std::wstring value(const std::wstring& key) const {
    const CQuillDpNode* node = record_->tree.GetSubValueFromPathW(0, key.c_str());
    return node && node->length > 0 ? node->text() : L"(none)";
  }
  std::wstring builtRow() const {
    CString row = L"left over";
    record_->BuildRow(row);
    return row.wide();
  }

  static std::string asText(const CByteArray& bytes) {
    return std::string(bytes.begin(), bytes.end());
  }
  static Place edges(const RECT& rectangle) { return test::edges(rectangle); }
  static Place place(const POINT& point) { return test::place(point); }

  Install install_;
  std::optional<CZhlkCircuitRecord> record_;
};

}  // namespace test
