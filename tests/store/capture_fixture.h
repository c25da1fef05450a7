// A circuit record in the real host, with a symbol library of drawings, for captures.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/paths.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/documents/session.h"
#include "embedded/slide_store/slide_listing.h"
#include "platform/framework_messages.h"
#include "platform/framework_wait_cursor.h"
#include "samples/generator/drawings.h"
#include "store/circuit_record.h"
#include "support/install.h"

namespace test {

// Symbols A01, a line (0, 0) to (0, -8), and B12, a circle. The frame is the sample library's: a
// slide's dots are then 119.5 + 4.3248 x and 319.5 + 4.3248 (y + 64).
class CaptureFixture : public testing::Test {
 protected:
  CaptureFixture() {
    std::filesystem::create_directories(install_.root() / "system");
    std::filesystem::create_directories(install_.symbols() / "Dqbl0001");
    save({{'L', {0, 0, 0, -8}, ""}}, symbolPath("A01"));
    save({{'C', {0, -4, 1}, ""}}, symbolPath("B12"));
    save({{'R', {-26.25, 6, 26.25, -134}, ""}}, framePath());
    writeBytes(install_.symbols() / "dwgdir.dab", "A01     0001B12     0001F002    0001");
    session_.line.output = [](std::string_view) {};
    setMessageBoxHandler([this](const MessageBoxCall& call) {
      EXPECT_EQ(call.caption, L"回路编辑");
      EXPECT_EQ(call.style, kMessageOk);
      EXPECT_EQ(call.owner, nullptr);
      messages_.push_back(call.text);
      return kMessageAnswerOk;
    });
    setWaitCursorHandler(
        [this](WaitCursor change) { cursor_ += change == WaitCursor::Begin ? 'B' : 'R'; });
    record_.emplace();
  }
  ~CaptureFixture() override {
    setMessageBoxHandler({});
    setWaitCursorHandler({});
  }

  std::filesystem::path symbolPath(const std::string& name) const {
    return install_.symbols() / "Dqbl0001" / (name + ".dwg");
  }
  std::filesystem::path framePath() const { return install_.root() / "system" / "t-Arr.dwg"; }

  static void save(const drafting::Database& database, const std::filesystem::path& path) {
    const base::Status status = drafting::saveDrawingFile(database, base::utf8FromPath(path));
    EXPECT_TRUE(status.ok()) << status.message();
  }
  static void save(const samples::Figure& figure, const std::filesystem::path& path) {
    save(*samples::makeFigureDrawing(figure), path);
  }

  std::string slide() const { return std::string(record_->slide.begin(), record_->slide.end()); }
  // What the slide of the row draws.
  std::string drawn(const std::wstring& row) {
    record_->CaptureRow(row, L"主回路&05");
    return listed(slide());
  }
  // One line of the listing, its ends in either order.
  static bool holds(const std::string& listing, int colour, int x1, int y1, int x2, int y2) {
    const auto shown = [](int x, int y) {
      return " " + std::to_string(x) + "," + std::to_string(y);
    };
    const std::string head = std::to_string(colour) + " line";
    const std::string text = "\n" + listing;
    return text.find("\n" + head + shown(x1, y1) + shown(x2, y2) + "\n") != text.npos ||
           text.find("\n" + head + shown(x2, y2) + shown(x1, y1) + "\n") != text.npos;
  }
  static auto vectors(const std::string& listing) {
    return std::count(listing.begin(), listing.end(), '\n');
  }

  Install install_;
  drafting::Session session_;
  std::optional<CZhlkCircuitRecord> record_;
  std::vector<std::wstring> messages_;
  std::string cursor_;  // B for begin, R for restore
};

using Messages = std::vector<std::wstring>;

}  // namespace test
