#include "support/conversation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "support/describe.h"
#include "support/temp_folder.h"

namespace test {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

struct Step {
  char kind = 0;
  std::string text;
  int line = 0;
};

struct Script {
  std::string file, name;
  int line = 0;
  std::vector<Step> steps;
};

std::string trimmedRight(std::string text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\r')) text.pop_back();
  return text;
}

void replaceAll(std::string& text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
    text.replace(at, what.size(), with);
}

// What was printed, as lines; the line feed in front of each message opens its line.
Lines linesOf(const std::string& text) {
  Lines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(trimmedRight(line));
  if (!lines.empty() && lines.front().empty()) lines.erase(lines.begin());
  return lines;
}

// The same text, "#" standing for a run of hexadecimal digits.
bool matches(const std::string& text, const std::string& pattern) {
  std::size_t at = 0;
  for (const char c : pattern) {
    if (c == '#') {
      const std::size_t end = text.find_first_not_of("0123456789ABCDEF", at);
      if (end == at || at >= text.size()) return false;
      at = std::min(end, text.size());
    } else if (at >= text.size() || text[at++] != c) {
      return false;
    }
  }
  return at == text.size();
}

std::string joined(const Lines& lines) {
  std::string out;
  for (const std::string& line : lines) out += line + "\n";
  return out;
}

// One test on its way through its steps.
class Conversation {
 public:
  Conversation(const Script& script, const Prepare& prepare) : script_(script) {
    session_.language = drafting::Language::English;
    session_.line.output = [this](std::string_view text) { printed_ += text; };
    session_.line.wait = [this] { return advance(); };
    if (prepare) prepare(session_);
    printed_.clear();
  }

  void run() {
    session_.line.run();
    if (session_.quit) advance();
    EXPECT_EQ(at_, script_.steps.size()) << where() << "the session ended before the test did";
  }

 private:
  // Does steps until one has typed something; false at the end.
  bool advance() {
    while (at_ < script_.steps.size()) {
      const Step& step = script_.steps[at_];
      switch (step.kind) {
        case '<': return type(next().text);
        case '|': checkPrinted(); break;
        case '@': checkEntities(); break;
        case '>': evaluate(next().text); break;
        case '=':
          EXPECT_EQ(value_, step.text) << where();
          value_ = kChecked;
          ++at_;
          break;
        case '!': checkFailure(); break;
        default:
          if (act(next().text)) return true;
      }
    }
    return false;
  }

  const Step& next() { return script_.steps[at_++]; }
  std::string where() const {
    const std::size_t step = std::min(at_, script_.steps.size() - 1);
    return script_.file + ":" + std::to_string(script_.steps[step].line) + ": ";
  }

  // The texts of the steps of one kind that follow each other.
  Lines take(char kind) {
    Lines lines;
    while (at_ < script_.steps.size() && script_.steps[at_].kind == kind)
      lines.push_back(next().text);
    return lines;
  }

  bool type(const std::string& text) {
    session_.line.type(text == "^" ? std::string(1, '\x1B') : expanded(text) + "\n");
    return true;
  }

  void checkPrinted() {
    const std::string place = where();
    EXPECT_EQ(joined(linesOf(folderHidden(std::exchange(printed_, {})))), joined(take('|')))
        << place;
  }

  void checkEntities() {
    const std::string place = where();
    Lines wanted = take('@');
    if (wanted == Lines{"none"}) wanted.clear();
    const Lines found = describeModelSpace(session_.database());
    if (std::equal(found.begin(), found.end(), wanted.begin(), wanted.end(), matches)) return;
    EXPECT_EQ(joined(found), joined(wanted)) << place;
  }

  void evaluate(const std::string& expression) {
    const auto outcome = session_.lisp.evaluateText(expanded(expression));
    value_ = outcome.ok() ? drafting::lisp::print(*outcome) : "failed: " + outcome.message();
    value_ = folderHidden(value_);
  }

  void checkFailure() {
    const std::string place = where();
    EXPECT_EQ(joined(linesOf(value_)), joined(linesOf("failed: " + joined(take('!'))))) << place;
    value_ = kChecked;
  }

  // True if the host is to look at its input again.
  bool act(const std::string& text) {
    std::istringstream in(text);
    std::string word, name, rest;
    in >> word >> name;
    std::getline(in >> std::ws, rest);
    if (word == "language") {
      session_.language =
          name == "chinese" ? drafting::Language::Chinese : drafting::Language::English;
    } else if (word == "file") {
      writeBytes(pathOf(name), expanded(rest));
    } else if (word == "script") {
      writeBytes(pathOf(name), scriptLines());
    } else if (word == "copy") {
      fs::copy_file(fs::path(VORNIK_TEST_DATA) / base::pathFromUtf8(name), pathOf(rest));
    } else if (word == "fault") {
      session_.faults.failAt(name, std::stoi(rest));
    } else if (word == "cancel") {
      session_.line.cancel();
      return true;
    } else if (word == "contains") {
      EXPECT_NE(bytesOf(pathOf(name)).find(rest), std::string::npos) << where() << name;
    } else if (word == "absent") {
      EXPECT_FALSE(fs::exists(pathOf(name))) << where() << name;
    } else {
      ADD_FAILURE() << where() << "unknown: " << word;
    }
    return false;
  }

  std::string scriptLines() {
    std::string lines;
    while (at_ < script_.steps.size()) {
      const Step& step = next();
      if (step.kind == ':' && step.text == "end") return lines;
      lines += expanded(step.text) + "\n";
    }
    ADD_FAILURE() << where() << ": end is missing";
    return lines;
  }

  fs::path pathOf(const std::string& name) const { return folder_ / base::pathFromUtf8(name); }
  std::string folderName() const {
    std::string name = base::utf8FromPath(folder_.path());
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
  }
  std::string expanded(std::string text) const {
    replaceAll(text, "$T", folderName());
    return text;
  }
  std::string folderHidden(std::string text) const {
    std::string native = folderName();
    replaceAll(text, native, "$T");
    std::replace(native.begin(), native.end(), '/', '\\');
    replaceAll(text, native, "$T");
    replaceAll(text, "$T\\", "$T/");
    return text;
  }

  static constexpr const char* kChecked = "nothing was evaluated";

  const Script& script_;
  std::size_t at_ = 0;
  TempFolder folder_;
  std::string printed_, value_ = kChecked;
  drafting::Session session_;
};

class ConversationTest : public testing::Test {
 public:
  ConversationTest(const Script& script, const Prepare& prepare)
      : script_(script), prepare_(prepare) {}
  void TestBody() override { Conversation(script_, prepare_).run(); }

 private:
  const Script& script_;
  const Prepare& prepare_;
};

class FailingTest : public testing::Test {
 public:
  explicit FailingTest(std::string reason) : reason_(std::move(reason)) {}
  void TestBody() override { FAIL() << reason_; }

 private:
  std::string reason_;
};

// "Circle: by its radius" as "CircleByItsRadius".
std::string testName(const std::string& title) {
  std::string name;
  bool capital = true;
  for (const char c : title) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (letter) {
      name += capital ? base::capital(c) : c;
    }
    capital = !letter && c != '\'';
  }
  return name;
}

std::vector<Script> readScripts(const fs::path& path) {
  std::vector<Script> scripts;
  std::istringstream in(bytesOf(path));
  int number = 0;
  bool verbatim = false;
  for (std::string line; std::getline(in, line);) {
    ++number;
    line = trimmedRight(line);
    if (verbatim) {
      verbatim = line != ": end";
      if (line.starts_with("< ")) line.erase(0, 2);
      scripts.back().steps.push_back({verbatim ? '<' : ':', verbatim ? line : "end", number});
      continue;
    }
    if (line.empty() || line.front() == ';') continue;
    const std::string text = line.size() > 2 ? line.substr(2) : "";
    if (line.front() == '#') {
      scripts.push_back({path.filename().string(), testName(text), number, {}});
    } else if (scripts.empty() || (line.size() > 1 && line[1] != ' ' && line != "<^")) {
      scripts.push_back({path.filename().string(), "", number, {}});  // reported as not readable
    } else {
      scripts.back().steps.push_back({line.front(), line == "<^" ? "^" : text, number});
    }
    verbatim = line.starts_with(": script ");
  }
  return scripts;
}

void registerFailure(const std::string& suite, const std::string& reason) {
  testing::RegisterTest(suite.c_str(), "Readable", nullptr, nullptr, __FILE__, __LINE__,
                        [reason]() -> testing::Test* { return new FailingTest(reason); });
}

}  // namespace

void registerConversations(const std::string& folder, Prepare prepare) {
  static std::vector<std::unique_ptr<std::pair<std::vector<Script>, Prepare>>> kept;
  int files = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(VORNIK_SOURCE_DIR) / folder)) {
    if (entry.path().extension() != ".txt" || entry.path().filename() == "CMakeLists.txt") continue;
    ++files;
    const std::string suite = testName(entry.path().stem().string());
    kept.push_back(std::make_unique<std::pair<std::vector<Script>, Prepare>>(
        readScripts(entry.path()), prepare));
    const auto& [scripts, ready] = *kept.back();
    for (const Script& script : scripts) {
      if (script.name.empty() || script.steps.empty()) {
        registerFailure(suite,
                        script.file + ":" + std::to_string(script.line) + ": is no line of a test");
        continue;
      }
      const Prepare& own = ready;
      testing::RegisterTest(
          suite.c_str(), script.name.c_str(), nullptr, nullptr, script.file.c_str(), script.line,
          [&script, &own]() -> testing::Test* { return new ConversationTest(script, own); });
    }
  }
  if (files == 0) registerFailure("Conversations", folder + " holds no test");
}

}  // namespace test
