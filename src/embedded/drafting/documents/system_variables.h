// System variables: name, type, limits, and where each value lives: in the drawing's header, in
// the session, or computed. GETVAR, SETVAR and the module's acedGetVar and acedSetVar end here.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "embedded/base/status.h"
#include "embedded/drafting/database/header.h"

namespace drafting {

class Session;

// The colour that a text means: "BYLAYER", "BYBLOCK", a name or a number from 0 to 256.
std::optional<int> parseColour(std::string_view text);
std::string colourName(int colour);

class SystemVariables {
 public:
  explicit SystemVariables(Session& session);

  // Nothing if there is no variable of that name (compared without case). Layers, styles, linetypes
  // and colours are given by name.
  std::optional<VariableValue> get(std::string_view name) const;
  // Whole numbers are taken for reals. Fails for unknown and read-only names, wrong types and
  // values out of the limits; the message says which.
  base::Status set(std::string_view name, const VariableValue& value);

  // For the host itself: also read-only ones, unchecked. The typed getters give 0 or "" for a
  // variable of another type.
  void put(std::string_view name, VariableValue value);
  int integer(std::string_view name) const;
  double real(std::string_view name) const;
  std::string text(std::string_view name) const;
  Point3 point(std::string_view name) const;

 private:
  base::Status setByName(std::string_view name, const std::string& record);

  Session& session_;
  std::map<std::string, VariableValue, std::less<>> own_;  // those that no drawing carries
};

}  // namespace drafting
