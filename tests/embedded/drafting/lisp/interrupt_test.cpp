// Esc pressed while an expression is evaluated, and recursion without an end.
#include "support/session_fixture.h"

namespace drafting {
namespace {

class Interrupt : public test::SessionFixture {
 protected:
  // Esc comes when the evaluation has asked for it so many times.
  void pressEscAfter(int questions) {
    session.lisp.interrupted = [this, questions] {
      if (++asked_ == questions) session.line.cancel();
      return session.line.cancelled();
    };
  }

  int asked_ = 0;
};

TEST_F(Interrupt, EscEndsLoopsThatHaveNoEnd) {
  for (const char* loop : {"(while T)", "(while 1 2)", "(while T (setq a 1))",
                           "(repeat 2000000000 1)", "(while T (while nil))"}) {
    asked_ = 0;
    pressEscAfter(1000);
    type(std::string(loop) + "\n");
    EXPECT_GE(asked_, 1000) << loop;
    EXPECT_LE(asked_, 1001) << loop << ": a loop around it may ask once more";
    EXPECT_NE(takePrinted().find("function cancelled"), std::string::npos) << loop;
  }
}

TEST_F(Interrupt, TheCommandLineGoesOnAfterwards) {
  pressEscAfter(50);
  type("(while T (setq a 1))\n");
  type("CIRCLE 0,0 3\n(+ a 1)\n");
  EXPECT_EQ(entities(), std::vector<std::string>{"CIRCLE 0,0 3"});
  EXPECT_NE(takePrinted().find("\n2"), std::string::npos);
}

TEST_F(Interrupt, WhatALoopHasDrawnIsTakenBackAsOne) {
  pressEscAfter(400);
  type("(while T (command \"POINT\" \"1,1\"))\n");
  EXPECT_FALSE(entities().empty());
  session.lisp.interrupted = [] { return false; };
  type("UNDO 1000\n");
  EXPECT_TRUE(entities().empty());
}

TEST_F(Interrupt, RecursionWithoutAnEndIsAnError) {
  EXPECT_EQ(evaluate("(defun f (n) (f (+ n 1)))"), "F");
  EXPECT_EQ(evaluate("(f 1)"), "failed: ; error: nested too deeply\n(F (+ N 1))");
  EXPECT_EQ(evaluate("(+ 1 2)"), "3");
}

}  // namespace
}  // namespace drafting
