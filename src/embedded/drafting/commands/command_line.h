// CommandLine: the one stream of input and its prompts. Commands, LISP and modules ask here; the
// answer comes from the arguments of the innermost acedCommand, or else from the input queue.
//
// A prompt that finds the queue empty calls `wait`, which pumps messages until there is input; it
// returns false when none will ever come (a script at its end), which cancels the prompt.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drafting/commands/input_queue.h"
#include "embedded/drafting/commands/prompt.h"

namespace drafting {

class Session;

class CommandLine {
 public:
  explicit CommandLine(Session& session) : session_(session) {}

  // --- input
  void type(std::string_view utf8) { queue_.append(utf8); }
  // A point shown on the screen: running snaps and ortho apply to it.
  void pick(const Point3& point);
  void runScript(std::string_view utf8);
  // What Esc does: the waiting prompt ends cancelled, and so do all that follow until the command
  // line is back at its own prompt; those that have their arguments with them are answered still.
  void cancel();
  bool cancelled() const { return cancelled_; }
  std::function<bool()> wait = [] { return false; };
  std::function<void(std::string_view utf8)> output = [](std::string_view) {};
  // Called whenever a command or an expression has ended and the next one may come.
  std::function<void()> ready = [] {};

  // Takes commands and expressions until the queue is empty or a command ended the session.
  void run();

  // What is asked while `wait` runs; null if nothing is. Input that is there then is an expression
  // whose end is still to come.
  const Prompt* waitingPrompt() const { return waiting_; }
  bool hasInput() const { return !queue_.empty(); }

  // --- for commands
  void print(std::string_view utf8) { output(utf8); }
  Answer ask(const Prompt& prompt);
  // Keywords for the next prompt of a module or of LISP, which takes them up, and what it refuses:
  // 1 Enter, 2 zero, 4 negative numbers (acedInitGet, initget).
  void armKeywords(std::string keywords, int flags) {
    armed_ = std::move(keywords);
    armedFlags_ = flags;
  }
  Answer askArmed(Prompt prompt);
  bool answersComeFromArguments() const { return !sources_.empty(); }

  // Runs commands with their answers, as acedCommand does. A command still asking when the list is
  // used up takes defaults where its prompt allows that and is otherwise cancelled. False if a
  // command wasn't known or was cancelled so.
  bool command(std::span<const Argument> arguments);
  bool insideCommand() const { return !running_.empty(); }

 private:
  struct Source {
    std::span<const Argument> left;
    bool ranOut = false;
  };
  enum class Verdict { Taken, Refused };  // Refused asks again

  class Running;
  Answer askQueue(const Prompt& prompt);
  Answer askSource(const Prompt& prompt, Source& source);
  Verdict takeTyped(const Prompt& prompt, const InputQueue::Token& token, Answer& answer);
  Verdict takeText(const Prompt& prompt, const std::string& text, Answer& answer);
  Verdict takeSnapped(const Prompt& prompt, int modes, Answer& answer);
  std::optional<Answer> takeArgument(const Prompt& prompt, const Argument& argument);
  std::optional<Answer> answerAt(const Prompt& prompt, const Point3& point, bool picked);
  std::optional<Point3> snapped(const Prompt& prompt, const Point3& point, int modes);
  Point3 straightened(const Prompt& prompt, const Point3& point) const;
  void runTransparent(std::string name);
  InputQueue::Token nextToken(bool wholeLine);
  void refuse(const Prompt& prompt);
  void remember(const Prompt& prompt, const Answer& answer);
  void runTyped(const std::string& text);
  bool runNamed(std::string name, bool transparently = false);

  Session& session_;
  InputQueue queue_;
  std::vector<Source*> sources_;
  std::string armed_;
  int armedFlags_ = 0;
  std::string lastCommand_;
  std::vector<std::string> running_;  // commands, the outermost first
  const Prompt* waiting_ = nullptr;
  bool snapping_ = false;     // the prompt asks where to snap
  bool transparent_ = false;  // a transparent command runs
  bool cancelled_ = false;
};

}  // namespace drafting
