// Every command and every LISP function with wrong, missing and hostile input at its prompts: the
// host says something, goes on, and the drawing can be had back as it was.
#include <gtest/gtest.h>

#include <map>

#include "embedded/drafting/dwg/object_image.h"
#include "support/session_fixture.h"

namespace drafting {
namespace {

// What leads into a command: nothing, points, selections, defaults, an option.
const std::vector<std::string> kWays = {
    "",   "0,0\n", "0,0\n5,5\n", "L\n\n",  "ALL\n\n0,0\n",    "C 30,30\n-1,-1\n\n0,0\n",
    "\n", "\n\n",  "S\n",        "W\n2\n", "L\n\n0,0\n1,1\n", "MARK\n"};

const std::vector<std::string> kWords = {"nosuch",
                                         "1e400",
                                         "-1",
                                         "0",
                                         "99999999999999999999",
                                         "nan",
                                         "1,2,3,4",
                                         "1,",
                                         ",,",
                                         "@",
                                         "@x<y",
                                         "12<",
                                         "@1e308,1e308",
                                         "1/0",
                                         "--1",
                                         "1e",
                                         ".",
                                         "*",
                                         "?",
                                         "!",
                                         "!nosuch",
                                         "(",
                                         ")",
                                         "(car 5)",
                                         "\"",
                                         "'",
                                         "'nosuch",
                                         "'ZOOM",
                                         "W",
                                         "R",
                                         "\xff\xfe\x80",
                                         "\x01\x7f",
                                         "回路回路",
                                         "..\\..\\nosuch\\x.dwg",
                                         "/nosuch/x.dxf",
                                         "C:\\",
                                         "con.dwg"};

constexpr const char* kEscape = "\x1b";

using Objects = std::map<Handle, std::string>;

// What is typed behind these may be a command that puts something else in the place of what they
// have taken back.
bool goesBack(const std::string& command) { return command == "U" || command == "UNDO"; }

class BadInput : public test::SessionFixture {
 protected:
  BadInput() {
    std::filesystem::current_path(folder.path());
    session.lisp.interrupted = [this] { return ++questions_ > 2000; };
    draw();
  }
  ~BadInput() override { std::filesystem::current_path(start_); }

  void draw() {
    type(
        "LINE 0,0 10,0\n\nPLINE 0,0 5,5 A 9,9\n\nCIRCLE 5,5 3\nTEXT 1,1 2 0 a\n\n"
        "SETVAR SAVETIME 0\n");
    drawing_ = &session.database();
    steps_ = journal().undoSteps();
    before_ = objects();
    takePrinted();
  }

  Journal& journal() { return session.database().journal(); }
  Objects objects() {
    Objects all;
    session.database().forEach([&all](const Object& o) {
      if (o.kind != Kind::Viewport) all[o.handle] = encodeImage(o);  // saving stores the view there
    });
    return all;
  }

  // The host waits for the next command; what was done is taken back to the drawing as it was.
  void expectAsBefore(const std::string& input) {
    questions_ = 0;
    EXPECT_FALSE(session.line.insideCommand()) << input;
    EXPECT_FALSE(takePrinted().empty()) << input;
    while (journal().depth() > 0) journal().end();  // UNDO Begin is an answer, too
    if (&session.database() != drawing_) {          // NEW and OPEN are commands
      draw();
      return;
    }
    while (journal().undoSteps() > steps_) ASSERT_TRUE(journal().undo()) << input;
    ASSERT_TRUE(objects() == before_) << input;
  }

 private:
  std::filesystem::path start_ = std::filesystem::current_path();
  const Database* drawing_ = nullptr;
  std::size_t steps_ = 0;
  Objects before_;
  int questions_ = 0;
};

TEST_F(BadInput, AnyCommandAtAnyPromptLeavesTheDrawingAsItWas) {
  for (const std::string& name : session.commands.names()) {
    for (const std::string& way : kWays) {
      for (const std::string& word : kWords) {
        std::string input = name;
        input.append("\n").append(way).append(word).append("\n");
        type(input + kEscape);
        session.quit = false;
        if (goesBack(name)) {
          ASSERT_TRUE(session.newDrawing().ok());
        }
        ASSERT_NO_FATAL_FAILURE(expectAsBefore(input));
      }
    }
  }
}

TEST_F(BadInput, TextWithoutEndIsTaken) {
  const std::string name(100'000, 'x');
  for (const std::string& command : session.commands.names()) {
    std::string input = command;
    input.append("\n").append(name).append("\n").append(kEscape);
    type(input);
    session.quit = false;
    if (goesBack(command)) {
      ASSERT_TRUE(session.newDrawing().ok());
    }
    ASSERT_NO_FATAL_FAILURE(expectAsBefore(command + " with a long text"));
  }
}

// --- LISP

const std::vector<std::string> kValues = {
    "nil",   "T",        "-1",        "99999",    "1.5",
    "1e300", "\"text\"", "'(1 2)",    "'(1 . 2)", "'(0.0 0.0 0.0)",
    "car",   "'nosuch",  "(entlast)", "(ssadd)"};

std::string call(const std::string& name, const std::vector<std::string>& arguments) {
  std::string text = "(" + name;
  for (const std::string& argument : arguments) text += " " + argument;
  return text + ")";
}

class BadArguments : public BadInput {
 protected:
  void expectAnswer(const std::string& expression) {
    const auto outcome = session.lisp.evaluateText(expression);
    if (!outcome.ok()) {
      EXPECT_FALSE(outcome.message().empty()) << expression;
    }
    session.line.cancel();
    session.line.run();
    session.print(".");  // most functions print nothing
    ASSERT_NO_FATAL_FAILURE(expectAsBefore(expression));
  }
};

TEST_F(BadArguments, AnyFunctionAnswersOrSaysWhatIsWrong) {
  for (const std::string& name : session.lisp.builtinNames()) {
    ASSERT_NO_FATAL_FAILURE(expectAnswer(call(name, {})));
    for (const std::string& a : kValues) {
      ASSERT_NO_FATAL_FAILURE(expectAnswer(call(name, {a})));
      for (const std::string& b : kValues) {
        ASSERT_NO_FATAL_FAILURE(expectAnswer(call(name, {a, b})));
      }
      ASSERT_NO_FATAL_FAILURE(expectAnswer(call(name, {a, a, a, a, a, a, a, a, a, a})));
    }
    ASSERT_EQ(evaluate("(+ 1 2)"), "3") << name;
  }
}

}  // namespace
}  // namespace drafting
