// Prompt and Answer: what a command asks and what it gets, whoever answers: typing, a script, a
// click, a LISP expression or the arguments of acedCommand.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "embedded/drafting/database/object.h"

namespace drafting {

// Entities picked, in the order in which they were added, each once.
using Selection = std::vector<Handle>;

enum class Ask {
  Command,   // a command name or a LISP expression
  Point,     // x,y[,z], @x,y, @d<a, d<a
  Distance,  // a number, or a point measured from `base`
  Angle,     // degrees, or a point seen from `base`; the answer is in radians
  Real,
  Integer,
  Keyword,    // one of `keywords`
  Word,       // text up to a blank
  Line,       // text up to the end of the line
  Selection,  // one contribution to a selection: names, or a point to pick at
  Entity,     // one entity: a point to pick at, a name, or a name with the point
};

struct Prompt {
  Ask kind = Ask::Word;
  std::string message = {};         // as shown; begins with "\n" where it starts a line
  std::string keywords = {};        // blank-separated; capital letters are the shortest form taken
  std::optional<Point3> base = {};  // where a line to the point is shown from
  std::optional<Point3> corner = {};  // where a rectangle to the point is shown from
  bool needsAnswer = false;           // Enter is refused
  bool defaultAtEnd = false;          // an argument list that runs out counts as Enter (attributes)
  bool nonNegative = false, nonZero = false;
  bool opensWithPoint = false;  // of a distance or an angle: a point is taken, with `atPoint`
};

enum class Outcome { Value, Keyword, Enter, Cancelled };

struct Answer {
  Outcome outcome = Outcome::Cancelled;
  Point3 point = {};
  double number = 0;
  int integer = 0;
  std::string text = {};  // keyword in full as the list spells it, word or line
  Selection selection = {};
  bool atPoint = false;  // of a selection or an entity: `point` says where
  bool picked = false;   // the point was shown on the screen and not typed

  bool hasValue() const { return outcome == Outcome::Value; }
  bool isKeyword(std::string_view keyword) const {
    return outcome == Outcome::Keyword && text == keyword;
  }
  bool entered() const { return outcome == Outcome::Enter; }
  bool cancelled() const { return outcome == Outcome::Cancelled; }
};

// One argument of acedCommand, or the value of a LISP expression given at a prompt. Text counts as
// typed: "" is Enter, "3,4" a point, "W" a keyword.
struct Pause {};
struct PickedEntity {  // with the point that it was picked at
  Handle handle = 0;
  Point3 point = {};
};
using Argument = std::variant<std::string, double, int, Point3, Selection, PickedEntity, Pause>;

}  // namespace drafting
