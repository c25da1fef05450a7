// UNDO with its groups and marks, U and REDO. They move through the journal's steps and make none.
#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

Journal& journal(Session& session) { return session.database().journal(); }

void undoSteps(Session& session, int count) {
  for (int i = 0; i < count; ++i) {
    if (!journal(session).undo()) {
      session.print(session.say("\n没有可放弃的操作。", "\nThere is nothing to undo."));
      return;
    }
  }
}

void undo(Session& session) {
  const Answer answer = session.line.ask(
      {.kind = Ask::Integer,
       .message =
           message(session, "\n输入要放弃的操作数目或 [开始(BE)/结束(E)/标记(M)/后退(B)] <1>: ",
                   "\nNumber of operations or [BEgin/End/Mark/Back] <1>: "),
       .keywords = "BEgin End Mark Back",
       .nonNegative = true,
       .nonZero = true});
  if (answer.cancelled()) return;
  if (answer.isKeyword("BEgin")) {
    journal(session).begin("GROUP");
  } else if (answer.isKeyword("End")) {
    if (journal(session).depth() > 0) journal(session).end();
  } else if (answer.isKeyword("Mark")) {
    journal(session).mark();
  } else if (answer.isKeyword("Back")) {
    journal(session).undoToMark();
  } else {
    undoSteps(session, answer.hasValue() ? answer.integer : 1);
  }
}

void redo(Session& session) {
  if (!journal(session).redo()) {
    session.print(session.say("\n没有可重做的操作。", "\nThere is nothing to redo."));
  }
}

}  // namespace

void addUndoCommands(CommandTable& table) {
  table.add({.name = "UNDO", .run = undo, .recordsItself = true});
  table.add(
      {.name = "U", .run = [](Session& session) { undoSteps(session, 1); }, .recordsItself = true});
  table.add({.name = "REDO", .run = redo, .recordsItself = true});
}

}  // namespace drafting
