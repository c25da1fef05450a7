// Journal: what undo and redo know. A step is what one command (or one group of commands) changed:
// for each object its bytes before and after in the R2000 object codec, for each chain the links
// made and cut, for each drawing variable both values.
//
// Groups nest; only the outermost one becomes a step. Within a step the first touch keeps the
// object as it was, so that touching it again costs nothing.
#pragma once

#include <cstddef>
#include <string>

namespace drafting {

class Database;

class Journal {
 public:
  explicit Journal(Database& database);

  void setRecording(bool on);  // off while a reader fills the drawing
  void begin(std::string_view name);
  void end();
  int depth() const;  // open groups

  std::size_t undoSteps() const;
  std::size_t redoSteps() const;
  // Takes back (makes again) one step; false if there is none or a group is open.
  bool undo();
  bool redo();
  void mark();               // a place for undoToMark
  std::size_t undoToMark();  // steps taken back
  bool changedSinceSave() const;
  void markSaved();
};

}  // namespace drafting
