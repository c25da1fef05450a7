// Shorthands with which commands ask: one function for each kind of prompt. Each gives the answer
// of the command line; messages are given in both languages.
#pragma once

#include <optional>

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

// Asks for a point; `base` is where the line to it comes from.
Answer askPoint(Session& session, std::string_view chinese, std::string_view english,
                std::optional<Point3> base = {}, std::string keywords = {});
// Asks for the corner opposite to `corner` of a rectangle.
Answer askCorner(Session& session, std::string_view chinese, std::string_view english,
                 const Point3& corner);
// Asks for both corners of a rectangle; nothing, and said so, if it has no extent.
std::optional<Box2> askRectangle(Session& session);
// Asks for a file, which may be given in quotation marks; empty if there is no answer.
std::string askPath(Session& session, std::string_view chinese, std::string_view english);
// Asks for a new value of the system variable; says so if there is none of that name.
void askVariable(Session& session, const std::string& name);

// "12.5" for a default in angle brackets.
std::string shown(double number);

}  // namespace drafting
