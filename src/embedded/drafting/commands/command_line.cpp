#include "embedded/drafting/commands/command_line.h"

#include <cmath>
#include <exception>
#include <utility>

#include "embedded/base/text.h"
#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/commands/ask.h"
#include "embedded/drafting/commands/command.h"
#include "embedded/drafting/documents/session.h"
#include "embedded/drafting/picking/snaps.h"

namespace drafting {
namespace {

// Nested acedCommand, scripts in LISP in commands: deeper than this is a loop.
constexpr std::size_t kMaxDepth = 32;

std::string_view refusal(const Session& session, Ask kind) {
  switch (kind) {
    case Ask::Point: return session.say("\n无效的点。", "\nInvalid point.");
    case Ask::Distance:
      return session.say("\n需要数值距离或两点。", "\nA distance or a point is needed.");
    case Ask::Angle: return session.say("\n需要角度或第二点。", "\nAn angle or a point is needed.");
    case Ask::Real: return session.say("\n需要数值。", "\nA number is needed.");
    case Ask::Integer: return session.say("\n需要整数值。", "\nA whole number is needed.");
    case Ask::Keyword: return session.say("\n无效的选项关键字。", "\nInvalid option keyword.");
    case Ask::Selection:
    case Ask::Entity: return session.say("\n无效的选择。", "\nInvalid selection.");
    default: return session.say("\n无效的输入。", "\nInvalid input.");
  }
}

bool takesPoint(Ask kind) {
  return kind == Ask::Point || kind == Ask::Distance || kind == Ask::Angle;
}

bool isPick(std::string_view text) { return !text.empty() && text.front() == kPickSign; }

}  // namespace

void CommandLine::pick(const Point3& point) { queue_.append(pickText(point) + "\n"); }

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
    cancelled_ = snapping_ = transparent_ = false;
    session_.database().journal().settle();
    ready();
    waiting_ = &prompt;
    const bool more = !queue_.empty() || wait();
    waiting_ = nullptr;
    if (!more) return;
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
  const int flags = std::exchange(armedFlags_, 0);
  prompt.needsAnswer = (flags & 1) != 0;
  prompt.nonZero = (flags & 2) != 0;
  prompt.nonNegative = (flags & 4) != 0;
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
    const Prompt* outer = std::exchange(waiting_, &prompt);
    const InputQueue::Token token = nextToken(wholeLine);
    waiting_ = outer;
    print(isPick(token.text) ? token.text.substr(1) : token.text);
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
  if (!token.isExpression || prompt.kind == Ask::Command)
    return takeText(prompt, token.text, answer);
  const lisp::Outcome value = session_.lisp.evaluateText(token.text);
  if (!value.ok()) print("\n" + value.message());
  if (cancelled_) return Verdict::Taken;
  const auto argument = value.ok() ? lisp::toArgument(*value) : std::nullopt;
  if (!argument) return Verdict::Refused;  // nil asks again
  auto taken = takeArgument(prompt, *argument);
  if (!taken) {
    refuse(prompt);
    return Verdict::Refused;
  }
  answer = std::move(*taken);
  return Verdict::Taken;
}

CommandLine::Verdict CommandLine::takeText(const Prompt& prompt, const std::string& text,
                                           Answer& answer) {
  std::optional<Answer> parsed;
  if (text.empty()) {
    if (!prompt.needsAnswer) parsed = Answer{.outcome = Outcome::Enter};
  } else if (text.front() == '\'' && prompt.kind != Ask::Command && prompt.kind != Ask::Line) {
    runTransparent(text);
    return Verdict::Refused;
  } else if (takesPoint(prompt.kind) && !matchKeyword(prompt.keywords, text)) {
    const auto modes = snapping_ ? std::nullopt : parseSnapModes(text);
    if (modes) return takeSnapped(prompt, *modes, answer);
    const Point3 last = session_.variables.point("LASTPOINT");
    parsed = parseAnswer(prompt, text, last);
    const auto point =
        parsed ? parsePoint(isPick(text) ? text.substr(1) : text, last) : std::nullopt;
    if (point) parsed = answerAt(prompt, *point, isPick(text));
  } else {
    parsed = parseAnswer(prompt, text, session_.variables.point("LASTPOINT"));
  }
  if (!parsed) {
    refuse(prompt);
    return Verdict::Refused;
  }
  answer = std::move(*parsed);
  return Verdict::Taken;
}

std::optional<Answer> CommandLine::takeArgument(const Prompt& prompt, const Argument& argument) {
  const auto* point = std::get_if<Point3>(&argument);
  if (point && takesPoint(prompt.kind)) return answerAt(prompt, *point, false);
  return answerFromArgument(prompt, argument, session_.variables.point("LASTPOINT"));
}

// --- points that mean others

// Running snaps and ortho go for picked points; for the others snaps do as OSNAPCOORD says.
std::optional<Answer> CommandLine::answerAt(const Prompt& prompt, const Point3& point,
                                            bool picked) {
  Point3 meant = point;
  if (!snapping_) {
    const int modes = session_.variables.integer("OSMODE");
    const bool running = modes != 0 && !(modes & kSnapOff) &&
                         (picked || session_.variables.integer("OSNAPCOORD") == 0);
    const auto found = running ? snapped(prompt, point, modes) : std::nullopt;
    meant = found ? *found : picked ? straightened(prompt, point) : point;
  }
  auto answer = answerFromArgument(prompt, meant, session_.variables.point("LASTPOINT"));
  if (answer) answer->picked = picked;
  return answer;
}

std::optional<Point3> CommandLine::snapped(const Prompt& prompt, const Point3& point, int modes) {
  SnapQuery query{.modes = modes, .point = {point.x, point.y}};
  query.reach = session_.variables.integer("APERTURE") * session_.view.unitsPerPixel();
  if (prompt.base) query.base = Point2{prompt.base->x, prompt.base->y};
  const auto found = snapPoint(session_.database(), session_.index(), query);
  if (!found) return {};
  return Point3{found->x, found->y, point.z};
}

// With ORTHOMODE on, the nearer of the two directions of the axes.
Point3 CommandLine::straightened(const Prompt& prompt, const Point3& point) const {
  if (!prompt.base || session_.variables.integer("ORTHOMODE") == 0) return point;
  const bool flat = std::abs(point.x - prompt.base->x) >= std::abs(point.y - prompt.base->y);
  return flat ? Point3{point.x, prompt.base->y, point.z} : Point3{prompt.base->x, point.y, point.z};
}

// "END" at a point's prompt asks for the point to snap at; the prompt is put again if none is
// there.
CommandLine::Verdict CommandLine::takeSnapped(const Prompt& prompt, int modes, Answer& answer) {
  Prompt where{.kind = Ask::Point, .message = std::string(session_.say(" 于 ", " of "))};
  where.needsAnswer = true;
  snapping_ = true;
  const Answer at = sources_.empty() ? askQueue(where) : askSource(where, *sources_.back());
  snapping_ = false;
  if (!at.hasValue()) {
    answer = at;
    return Verdict::Taken;
  }
  const auto point =
      modes == 0 ? std::optional<Point3>(at.point) : snapped(prompt, at.point, modes);
  const auto meant = point ? answerFromArgument(prompt, *point, *point) : std::nullopt;
  if (!meant) {
    print(session_.say("\n未找到指定的捕捉点。", "\nThere is no such point to snap to."));
    return Verdict::Refused;
  }
  answer = *meant;
  return Verdict::Taken;
}

void CommandLine::refuse(const Prompt& prompt) { print(refusal(session_, prompt.kind)); }

Answer CommandLine::askSource(const Prompt& prompt, Source& source) {
  while (!source.left.empty()) {
    const Argument& argument = source.left.front();
    source.left = source.left.subspan(1);
    if (std::holds_alternative<Pause>(argument)) return askQueue(prompt);
    if (const auto* text = std::get_if<std::string>(&argument)) {
      Answer answer;
      if (takeText(prompt, *text, answer) == Verdict::Taken) return answer;
    } else if (auto answer = takeArgument(prompt, argument)) {
      return *answer;
    } else {
      refuse(prompt);
    }
  }
  if (prompt.defaultAtEnd) return {.outcome = Outcome::Enter};
  source.ranOut = true;
  return {};
}

// --- running

bool CommandLine::command(std::span<const Argument> arguments) {
  if (running_.size() >= kMaxDepth) {
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
    line_.running_.push_back(command.name);
    if (journal_) journal_->begin(command.name);
  }
  ~Running() {
    if (journal_) journal_->end();
    line_.running_.pop_back();
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  CommandLine& line_;
  Journal* journal_;
};

// Within a prompt: the command that waits goes on behind it.
void CommandLine::runTransparent(std::string name) {
  if (transparent_) {
    print(session_.say("\n透明命令不能嵌套。", "\nA transparent command is running already."));
    return;
  }
  transparent_ = true;
  runNamed(std::move(name), true);
  transparent_ = false;
  if (!running_.empty()) {
    print("\n" + std::string(session_.say("正在恢复执行 ", "Resuming ")) + running_.back() +
          std::string(session_.say(" 命令。", ".")));
  }
}

bool CommandLine::runNamed(std::string name, bool transparently) {
  while (!name.empty() && (name.front() == '_' || name.front() == '.' || name.front() == '\'')) {
    name.erase(0, 1);
  }
  const Command* found = session_.commands.find(name);
  if (!found && session_.variables.get(name)) {  // a variable's name asks for its value
    askVariable(session_, base::capitals(name));
    return true;
  }
  if (!found) {
    print(std::string(session_.say("\n未知命令“", "\nUnknown command \"")) + name +
          std::string(session_.say("”。", "\".")));
    return false;
  }
  const Command command = *found;  // it may remove its own group
  if (transparently && !command.transparent) {
    print("\n" + command.name +
          std::string(session_.say(" 不能在其他命令中使用。", " can't be used within a command.")));
    return false;
  }
  if (sources_.empty() && !transparently) lastCommand_ = command.name;
  const Running running(*this, command);
  command.run(session_);
  return true;
}

}  // namespace drafting
