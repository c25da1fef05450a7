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

  // --- for commands
  void print(std::string_view utf8) { output(utf8); }
  Answer ask(const Prompt& prompt);
  // Keywords for the next prompt of a module, and whether it refuses Enter (acedInitGet); that
  // prompt takes them up.
  void armKeywords(std::string keywords, bool needsAnswer) {
    armed_ = std::move(keywords);
    armedNeedsAnswer_ = needsAnswer;
  }
  Answer askArmed(Prompt prompt);
  bool answersComeFromArguments() const { return !sources_.empty(); }

  // Runs commands with their answers, as acedCommand does. A command still asking when the list is
  // used up takes defaults where its prompt allows that and is otherwise cancelled. False if a
  // command wasn't known or was cancelled so.
  bool command(std::span<const Argument> arguments);
  bool insideCommand() const { return depth_ > 0; }

 private:
  struct Source {
    std::span<const Argument> left;
    bool ranOut = false;
  };
  enum class Verdict { Taken, Refused };

  class Running;
  Answer askQueue(const Prompt& prompt);
  Answer askSource(const Prompt& prompt, Source& source);
  Verdict takeTyped(const Prompt& prompt, const InputQueue::Token& token, Answer& answer);
  InputQueue::Token nextToken(bool wholeLine);
  void refuse(const Prompt& prompt);
  void remember(const Prompt& prompt, const Answer& answer);
  void runTyped(const std::string& text);
  bool runNamed(std::string name);

  Session& session_;
  InputQueue queue_;
  std::vector<Source*> sources_;
  std::string armed_;
  bool armedNeedsAnswer_ = false;
  std::string lastCommand_;
  int depth_ = 0;
  bool cancelled_ = false;
};

}  // namespace drafting
