// A session in English with what it printed, for tests of the host's own functions.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "embedded/base/paths.h"
#include "embedded/drafting/documents/session.h"
#include "support/describe.h"
#include "support/temp_folder.h"

namespace test {

class SessionFixture : public testing::Test {
 protected:
  SessionFixture() {
    session.language = drafting::Language::English;
    session.line.output = [this](std::string_view text) { printed_ += text; };
  }

  void type(std::string_view lines) {
    session.line.type(lines);
    session.line.run();
  }
  std::string takePrinted() { return std::exchange(printed_, {}); }
  // The value of a LISP expression as PRIN1 shows it, or "failed: " and the message.
  std::string evaluate(std::string_view expression) {
    const auto outcome = session.lisp.evaluateText(expression);
    return outcome.ok() ? drafting::lisp::print(*outcome) : "failed: " + outcome.message();
  }
  std::vector<std::string> entities() const { return describeModelSpace(session.database()); }
  std::string pathOf(const char* name) const { return base::utf8FromPath(folder / name); }

  TempFolder folder;
  drafting::Session session;

 private:
  std::string printed_;
};

}  // namespace test
