// What a step of the journal holds: the objects, links and drawing variables that it changed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drafting/database/header.h"
#include "embedded/drafting/database/object.h"

namespace drafting {

// An object's bytes in the R2000 object codec; an image is empty where there was no object.
struct JournalChange {
  Handle handle = 0;
  std::string before, after;
};

// A link between objects, made or cut. The fields say what stands around the subject: for an
// entity its neighbours, for a record of a table its place (in `previous`).
struct JournalLink {
  enum class Where : std::uint8_t { Chain, Table } where = Where::Chain;
  bool made = true;
  Handle subject = 0, owner = 0, previous = 0, next = 0;
};

struct JournalVariable {
  int index = 0;  // row of variables()
  Header::Value before, after;
};

// A stretch of a step that is taken back or made again as a whole.
struct JournalPart {
  std::vector<JournalChange> changes;
  std::vector<JournalLink> links;
  std::vector<JournalVariable> variables;
  bool empty() const { return changes.empty() && links.empty() && variables.empty(); }
};

struct JournalStep {
  std::uint64_t id = 0;  // unique in its drawing, ascending
  std::string name;
  std::vector<JournalPart> parts;  // in the order in which they were done
};

// What happened to the journal, for who follows it (documents/recovery.h).
struct JournalEvent {
  enum class Kind : std::uint8_t {
    Done,    // the step of this id has more parts: those told
    Undone,  // the whole step was taken back
    Redone,  // or made again
  } kind = Kind::Done;
  Handle nextHandle = 0;  // of the drawing, behind it
};

// The event with its step as bytes, and back; false if the bytes are no event. Numbers are
// little-endian.
std::string encodeEvent(const JournalEvent& event, const JournalStep& step);
bool decodeEvent(std::string_view bytes, JournalEvent& event, JournalStep& step);

}  // namespace drafting
