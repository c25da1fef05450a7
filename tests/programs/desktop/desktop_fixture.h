// The desktop without windows, worked by a hand: steps that are done one at each wait for input.
#pragma once

#include <deque>
#include <fstream>
#include <functional>

#include "embedded/base/text.h"
#include "platform/framework_messages.h"
#include "programs/desktop/desktop.h"
#include "support/session_fixture.h"

namespace test {

class FakeDialogs : public desktop::Dialogs {
 public:
  std::optional<std::string> askOpen() override { return open; }
  std::optional<std::string> askSave(const std::string& suggested) override {
    this->suggested = suggested;
    return save;
  }
  desktop::PlotAnswer askPlot(desktop::PlotChoices& choices) override {
    return plot ? plot(choices) : desktop::PlotAnswer::Cancelled;
  }

  std::optional<std::string> open, save;
  std::string suggested;
  std::function<desktop::PlotAnswer(desktop::PlotChoices&)> plot;
};

class DesktopFixture : public SessionFixture {
 protected:
  static constexpr int kYes = 6, kNo = 7, kCancel = 2;
  using Step = std::function<void()>;

  DesktopFixture() {
    desk.screen.resize(400, 300);
    session.view.show({200, 150}, 300);  // a pixel is a unit
    setMessageBoxHandler([this](const MessageBoxCall& call) {
      boxes.push_back(base::utf8FromWide(call.text));
      if (answers.empty()) return kCancel;
      const int answer = answers.front();
      answers.pop_front();
      return answer;
    });
  }
  ~DesktopFixture() override { setMessageBoxHandler({}); }

  // Runs the command line; each wait settles the desktop and does one step.
  void act(std::deque<Step> steps) {
    session.line.wait = [this, &steps] {
      if (desk.settle()) return true;
      desk.refreshScreen();
      if (steps.empty()) return false;
      const Step step = std::move(steps.front());
      steps.pop_front();
      step();
      return true;
    };
    session.line.run();
    session.line.wait = [] { return false; };
    EXPECT_TRUE(steps.empty()) << "steps are left";
  }
  Step typed(std::string input) {
    return [this, input] { desk.submit(input); };
  }
  // At a point of the drawing, in whole units.
  Step clicked(int x, int y) {
    return [this, x, y] { desk.pointer.leftClick({x, 299 - y}); };
  }
  std::string printed() { return desk.transcript.takeLines() + desk.transcript.current(); }
  base::Rgb pixel(int x, int y) const { return desk.screen.bitmap().at(x, 299 - y); }

  std::deque<int> answers;
  std::vector<std::string> boxes;
  FakeDialogs dialogs;
  desktop::Desktop desk{session, dialogs, folder.path() / "data"};
};

inline void writeFile(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace test
