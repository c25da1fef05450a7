// Linked into every window test: when a test fails, the screen as it was at its first failure is
// kept in out/ under the test's name, as a bitmap file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "windows/picture.h"

namespace {

class FailurePicture : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { taken_ = false; }

  void OnTestPartResult(const testing::TestPartResult& result) override {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    if (!result.failed() || taken_ || !test) return;
    taken_ = true;
    const std::filesystem::path folder = std::filesystem::path(VORNIK_SOURCE_DIR) / "out";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::string name = std::string(test->test_suite_name()) + "." + test->name() + ".bmp";
    window_kit::pictureOfScreen().save(folder / name);
  }

  bool taken_ = false;
};

[[maybe_unused]] const bool added = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new FailurePicture);
  return true;
}();

}  // namespace
