// Random command sequences taken back and made again: each state comes again as it was.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "embedded/base/numbers.h"
#include "embedded/drafting/documents/session.h"
#include "embedded/drafting/dwg/object_image.h"

namespace drafting {
namespace {

// Every object's bytes, model space's order, and the drawing's variables.
struct State {
  std::map<Handle, std::string> objects;
  std::vector<Handle> order;
  std::string layer;
  friend bool operator==(const State&, const State&) = default;
};

class RandomCommands {
 public:
  explicit RandomCommands(unsigned seed) : random_(seed) {
    session_.line.output = [](std::string_view) {};
    session_.line.type("LAYER N A,B\n\n");
    session_.line.run();
  }

  State state() {
    State now;
    const Database& database = session_.database();
    database.forEach([&now](const Object& o) { now.objects[o.handle] = encodeImage(o); });
    for (const Entity* e = database.modelSpace().first; e; e = e->next)
      now.order.push_back(e->handle);
    now.layer = session_.variables.text("CLAYER");
    return now;
  }

  void step() {
    static const std::vector<std::string> kCommands = {
        "LINE $ $ $\n\n",
        "PLINE $ W 1\n2\n$ A $ CL\n",
        "PLINE $ $ $\n\n",
        "CIRCLE $ 5\n",
        "ARC $ $ $\n",
        "TEXT $ 3 0 回路\n\n",
        "POINT $\n",
        "MOVE ALL\n\n$ $\n",
        "COPY L\n\n$ $\n",
        "ROTATE C $ $\n\n$ 33\n",
        "MIRROR L\n\n$ $ Y\n",
        "SCALE C $ $\n\n$ 1.5\n",
        "STRETCH C $ $\n\n$ $\n",
        "TRIM\n$ $ $ $\n\n\n",
        "EXTEND\n\n$\n\n",
        "EXPLODE L\n\n",
        "ERASE C $ $\n\n",
        "OOPS\n",
        "CHPROP ALL\n\nC 3\nLA B\nLT ByBlock\n\n",
        "CHANGE L\n\n$\n",
        "LAYER S A\n\n",
        "LAYER C 4 B\nF B\nT B\n\n",
        "UNDO BE\nCIRCLE $ 2\nUNDO BE\nMOVE L\n\n$ $\nUNDO E\nPOINT $\nUNDO E\n",
        "ZOOM C $ 50\n",
        "(command \"LINE\" \"$\" \"$\" \"\")\n",
        "(if (entlast) (entdel (entlast)))\n"};
    std::string command = kCommands[random_() % kCommands.size()];
    for (std::size_t at = 0; (at = command.find('$', at)) != std::string::npos;)
      command.replace(at, 1, point());
    session_.line.type(command + "\x1b");
    session_.line.run();
  }

  Journal& journal() { return session_.database().journal(); }

 private:
  std::string point() {
    return base::formatInt(static_cast<int>(random_() % 100)) + "," +
           base::formatInt(static_cast<int>(random_() % 100));
  }

  std::mt19937 random_;
  Session session_;
};

class UndoOfRandomCommands : public testing::TestWithParam<unsigned> {};

TEST_P(UndoOfRandomCommands, EachStateComesAgain) {
  RandomCommands commands(GetParam());
  std::vector<State> states{commands.state()};
  std::vector<std::size_t> steps{commands.journal().undoSteps()};
  for (int i = 0; i < 60; ++i) {
    commands.step();
    if (commands.journal().undoSteps() == steps.back()) continue;  // nothing changed
    states.push_back(commands.state());
    steps.push_back(commands.journal().undoSteps());
  }
  EXPECT_EQ(commands.journal().depth(), 0);
  ASSERT_GT(states.size(), 20U);
  for (std::size_t i = states.size(); i-- > 1;) {
    ASSERT_TRUE(commands.state() == states[i]) << "seed " << GetParam() << ", undo to " << i;
    while (commands.journal().undoSteps() > steps[i - 1]) ASSERT_TRUE(commands.journal().undo());
  }
  for (std::size_t i = 0; i < states.size(); ++i) {
    ASSERT_TRUE(commands.state() == states[i]) << "seed " << GetParam() << ", redo to " << i;
    while (i + 1 < states.size() && commands.journal().undoSteps() < steps[i + 1])
      ASSERT_TRUE(commands.journal().redo());
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoOfRandomCommands, testing::Range(1U, 13U));

}  // namespace
}  // namespace drafting
