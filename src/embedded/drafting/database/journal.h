// Journal: what undo and redo know. A step is what one command (or one group of commands) changed:
// for each object its bytes before and after in the R2000 object codec, for each chain and table
// the links made and cut, for each drawing variable both values.
//
// Groups nest; only the outermost one becomes a step. Within a step the first touch keeps the
// object as it was, so that touching it again costs nothing. Changes made while no group is open
// gather in a nameless step, which the next group or undo closes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drafting/database/header.h"
#include "embedded/drafting/database/object.h"

namespace drafting {

class Database;

class Journal {
 public:
  explicit Journal(Database& database) : database_(database) {}
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  void setRecording(bool on);  // off while a reader fills the drawing
  void begin(std::string_view name);
  void end();
  int depth() const { return depth_; }  // open groups

  std::size_t undoSteps() const;
  std::size_t redoSteps() const { return redo_.size(); }
  std::string_view undoName() const;  // of the step that undo would take back; "" if none
  // Takes back (makes again) one step; false if there is none or a group is open.
  bool undo();
  bool redo();
  void mark();  // a place for undoToMark
  // Takes back the steps since the last mark, which is then gone; without a mark all of them.
  // Returns how many.
  std::size_t undoToMark();
  bool changedSinceSave() const;
  void markSaved();

 private:
  friend class Database;

  // An image is empty where there was no object.
  struct Change {
    Handle handle = 0;
    std::string before, after;
  };
  // A link between objects, made or cut. The fields say what stands around the subject: for an
  // entity its neighbours, for a record of a table its place (in `previous`).
  struct Link {
    enum class Where : std::uint8_t { Chain, Table } where = Where::Chain;
    bool made = true;
    Handle subject = 0, owner = 0, previous = 0, next = 0;
  };
  struct VariableChange {
    int index = 0;
    Header::Value before, after;
  };
  struct Step {
    std::uint64_t id = 0;
    std::string name;
    std::vector<Change> changes;
    std::vector<Link> links;
    std::vector<VariableChange> variables;
    bool empty() const { return changes.empty() && links.empty() && variables.empty(); }
  };

  // What Database reports. Each call comes before the change but for `created` and `link`.
  void willChange(const Object& object);
  void created(Handle handle);
  void link(const Link& link);
  void willChangeVariable(int index);

  Step& step();  // the open one; opens a nameless one if there is none
  void close();
  void apply(const Step& step, bool forward);
  void applyImage(Handle handle, const std::string& image);
  void applyLink(const Link& link, bool make);
  std::uint64_t stateId() const { return undo_.empty() ? 0 : undo_.back().id; }

  Database& database_;
  bool recording_ = true;
  int depth_ = 0;
  bool open_ = false;
  Step current_;
  std::unordered_map<Handle, std::size_t> touched_;  // index into current_.changes
  std::vector<Step> undo_, redo_;
  std::vector<std::size_t> marks_;  // sizes of undo_
  std::uint64_t lastId_ = 0;
  std::uint64_t savedId_ = 0;
};

}  // namespace drafting
