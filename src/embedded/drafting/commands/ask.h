// Shorthands with which commands ask: one function for each kind of prompt. Each gives the answer
// of the command line; messages are given in both languages.
#pragma once

#include "embedded/drafting/commands/command_line.h"
#include "embedded/drafting/documents/session.h"

namespace drafting {

inline std::string message(const Session& session, std::string_view chinese,
                           std::string_view english) {
  return std::string(session.say(chinese, english));
}

// The new entity with the current layer, colour, linetype, linetype scale and lineweight.
void applyCurrentProperties(const Session& session, Entity& entity);
// Appends it so to model space; its handle.
Handle drawEntity(Session& session, std::unique_ptr<Entity> entity);

// Asks for entities until Enter; "L", "P", "ALL", "R" and "A", entity names and sets are taken.
// Also kept as the previous selection. Nothing if cancelled.
std::optional<Selection> askSelection(Session& session);

// "12.5" for a default in angle brackets.
std::string shown(double number);

}  // namespace drafting
