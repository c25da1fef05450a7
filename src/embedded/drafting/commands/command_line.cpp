#include "embedded/drafting/commands/command_line.h"

#include <exception>
#include <utility>

#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/commands/command.h"
#include "embedded/drafting/documents/session.h"

namespace drafting {
namespace {

// Nested acedCommand, scripts in LISP in commands: deeper than this is a loop.
constexpr int kMaxDepth = 32;

std::string_view refusal(const Session& session, Ask kind) {
  switch (kind) {
    case Ask::Point: return session.say("\n无效的点。", "\nInvalid point.");
    case Ask::Distance:
      return session.say("\n需要数值距离或两点。", "\nA distance or a point is needed.");
    case Ask::Angle: return session.say("\n需要角度或第二点。", "\nAn angle or a point is needed.");
    case Ask::Real: return session.say("\n需要数值。", "\nA number is needed.");
    case Ask::Integer: return session.say("\n需要整数值。", "\nA whole number is needed.");
    case Ask::Keyword: return session.say("\n无效的选项关键字。", "\nInvalid option keyword.");
    case Ask::Selection: return session.say("\n无效的选择。", "\nInvalid selection.");
    default: return session.say("\n无效的输入。", "\nInvalid input.");
  }
}

}  // namespace

void CommandLine::runScript(std::string_view utf8) {
  std::string input;
  while (!utf8.empty()) {
    const std::size_t end = utf8.find('\n');
    const std::string_view line = utf8.substr(0, end);
    if (line.empty() || line.front() != ';') input.append(line).push_back('\n');
    utf8.remove_prefix(end == std::string_view::npos ? utf8.size() : end + 1);
  }
  queue_.prepend(input);
}

void CommandLine::cancel() {
  queue_.clear();
  cancelled_ = true;
}

void CommandLine::run() {
  const Prompt prompt{.kind = Ask::Command,
                      .message = std::string(session_.say("\n命令: ", "\nCommand: "))};
  while (!session_.quit) {
    cancelled_ = false;
    session_.database().journal().settle();
    ready();
    if (queue_.empty() && !wait()) return;
    const Answer answer = askQueue(prompt);
    try {
      if (answer.hasValue()) {
        runTyped(answer.text);
      } else if (answer.entered() && !lastCommand_.empty()) {
        runNamed(lastCommand_);
      }
    } catch (const std::exception& exception) {  // out of memory: the command ends, not the host
      print("\n" + std::string(session_.say("内部错误: ", "Internal error: ")) + exception.what());
    }
  }
}

// --- asking

Answer CommandLine::ask(const Prompt& prompt) {
  if (cancelled_ && sources_.empty()) return {};
  Answer answer = sources_.empty() ? askQueue(prompt) : askSource(prompt, *sources_.back());
  remember(prompt, answer);
  return answer;
}

Answer CommandLine::askArmed(Prompt prompt) {
  prompt.keywords = std::exchange(armed_, {});
  prompt.needsAnswer = std::exchange(armedNeedsAnswer_, false);
  return ask(prompt);
}

void CommandLine::remember(const Prompt& prompt, const Answer& answer) {
  if (prompt.kind == Ask::Point && answer.hasValue())
    session_.variables.put("LASTPOINT", answer.point);
}

InputQueue::Token CommandLine::nextToken(bool wholeLine) {
  while (!cancelled_) {
    InputQueue::Token token = queue_.take(wholeLine, false);
    if (token.ending != InputQueue::Ending::Open) return token;
    if (!wait()) return queue_.take(wholeLine, true);
  }
  return {};
}

Answer CommandLine::askQueue(const Prompt& prompt) {
  // Who waits for the user has nothing half done: a record of the work may go as far as here.
  session_.database().journal().settle();
  const bool wholeLine = prompt.kind == Ask::Line;
  while (true) {
    print(prompt.message);
    const InputQueue::Token token = nextToken(wholeLine);
    print(token.text);
    Answer answer;
    if (token.ending != InputQueue::Ending::Complete) {
      print(session_.say("*取消*", "*Cancel*"));
      return answer;
    }
    if (takeTyped(prompt, token, answer) == Verdict::Taken) return answer;
  }
}

CommandLine::Verdict CommandLine::takeTyped(const Prompt& prompt, const InputQueue::Token& token,
                                            Answer& answer) {
  const Point3 last = session_.variables.point("LASTPOINT");
  std::optional<Answer> parsed;
  if (token.isExpression && prompt.kind != Ask::Command) {
    const lisp::Outcome value = session_.lisp.evaluateText(token.text);
    if (!value.ok()) print("\n" + value.message());
    if (cancelled_) return Verdict::Taken;
    const auto argument = value.ok() ? lisp::toArgument(*value) : std::nullopt;
    if (!argument) return Verdict::Refused;  // nil asks again
    parsed = answerFromArgument(prompt, *argument, last);
  } else if (token.text.empty()) {
    if (!prompt.needsAnswer) {
      answer.outcome = Outcome::Enter;
      return Verdict::Taken;
    }
  } else {
    parsed = parseAnswer(prompt, token.text, last);
  }
  if (!parsed) {
    refuse(prompt);
    return Verdict::Refused;
  }
  answer = std::move(*parsed);
  return Verdict::Taken;
}

void CommandLine::refuse(const Prompt& prompt) { print(refusal(session_, prompt.kind)); }

Answer CommandLine::askSource(const Prompt& prompt, Source& source) {
  while (!source.left.empty()) {
    const Argument& argument = source.left.front();
    source.left = source.left.subspan(1);
    if (std::holds_alternative<Pause>(argument)) return askQueue(prompt);
    const auto* text = std::get_if<std::string>(&argument);
    if (text && text->empty()) {
      if (!prompt.needsAnswer) return {.outcome = Outcome::Enter};
    } else if (const auto answer =
                   answerFromArgument(prompt, argument, session_.variables.point("LASTPOINT"))) {
      return *answer;
    }
    refuse(prompt);
  }
  if (prompt.defaultAtEnd) return {.outcome = Outcome::Enter};
  source.ranOut = true;
  return {};
}

// --- running

bool CommandLine::command(std::span<const Argument> arguments) {
  if (depth_ >= kMaxDepth) {
    print(session_.say("\n命令嵌套太深。", "\nCommands are nested too deeply."));
    return false;
  }
  struct Listed {
    Listed(std::vector<Source*>& all, Source& one) : all(all) { all.push_back(&one); }
    ~Listed() { all.pop_back(); }
    std::vector<Source*>& all;
  };
  Source source{arguments};
  const Listed listed(sources_, source);
  bool good = true;
  while (good && !source.left.empty()) {
    const auto* name = std::get_if<std::string>(&source.left.front());
    source.left = source.left.subspan(1);
    if (name && name->empty()) continue;
    good = name && runNamed(*name) && !source.ranOut;
  }
  return good;
}

void CommandLine::runTyped(const std::string& text) {
  if (text.front() != '(') {
    runNamed(text);
    return;
  }
  const lisp::Outcome value = session_.lisp.evaluateText(text);
  if (!value.ok()) {
    print("\n" + value.message());
  } else if (!value->isVoid()) {
    print("\n" + lisp::print(*value));
  }
}

// A command on its way: its depth and its undo step end also when it is left by an exception.
class CommandLine::Running {
 public:
  Running(CommandLine& line, const Command& command)
      : line_(line),
        journal_(command.recordsItself ? nullptr : &line.session_.database().journal()) {
    ++line_.depth_;
    if (journal_) journal_->begin(command.name);
  }
  ~Running() {
    if (journal_) journal_->end();
    --line_.depth_;
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  CommandLine& line_;
  Journal* journal_;
};

bool CommandLine::runNamed(std::string name) {
  while (!name.empty() && (name.front() == '_' || name.front() == '.' || name.front() == '\'')) {
    name.erase(0, 1);
  }
  const Command* found = session_.commands.find(name);
  if (!found) {
    print(std::string(session_.say("\n未知命令“", "\nUnknown command \"")) + name +
          std::string(session_.say("”。", "\".")));
    return false;
  }
  const Command command = *found;  // it may remove its own group
  if (sources_.empty()) lastCommand_ = command.name;
  const Running running(*this, command);
  command.run(session_);
  return true;
}

}  // namespace drafting
