// Journal: what undo and redo know. A step is what one command (or one group of commands) changed:
// for each object its bytes before and after in the R2000 object codec, for each chain and table
// the links made and cut, for each drawing variable both values.
//
// Groups nest; only the outermost one becomes a step. Within a step the first touch keeps the
// object as it was, so that touching it again costs nothing. Changes made while no group is open
// gather in a nameless step, which the next group or undo closes.
//
// Who keeps a record of the work (documents/recovery.h) follows the journal. Since a group may stay
// open for long, such a step is then told, and kept, in parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drafting/database/journal_step.h"

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
  void markChanged() { savedId_ = kNeverSaved; }

  // Called with all that happens, while the drawing is as it is then. It changes nothing.
  std::function<void(const JournalEvent&, const JournalStep&)> follower;
  // Tells the follower what has been done so far in the step that is open.
  void settle();
  // Does what an event tells; the drawing is that of the time before it. False if they don't belong
  // together; what fits is done all the same.
  bool replay(const JournalEvent& event, JournalStep step);

 private:
  friend class Database;

  using Link = JournalLink;
  static constexpr std::uint64_t kNeverSaved = ~std::uint64_t{0};

  // What Database reports. Each call comes before the change but for `created` and `link`.
  void willChange(const Object& object);
  void created(Handle handle);
  void link(const Link& link);
  void willChangeVariable(int index);

  JournalPart& part();  // of the open step; opens a nameless one if there is none
  void open();
  void close();
  void closePart();
  void tell(JournalEvent::Kind kind, const JournalStep& step);
  void move(std::vector<JournalStep>& from, std::vector<JournalStep>& to, bool forward);
  bool apply(const JournalStep& step, bool forward);
  bool apply(const JournalPart& part, bool forward);
  bool applyImage(Handle handle, const std::string& image);
  void applyLink(const Link& link, bool make);
  bool pending() const;  // the open step has something in it
  std::uint64_t stateId() const { return undo_.empty() ? 0 : undo_.back().id; }

  Database& database_;
  bool recording_ = true;
  int depth_ = 0;
  bool open_ = false;
  JournalStep current_;                              // the parts that are settled
  JournalPart part_;                                 // and the one that grows
  std::unordered_map<Handle, std::size_t> touched_;  // index into part_.changes
  std::vector<JournalStep> undo_, redo_;
  std::vector<std::size_t> marks_;  // sizes of undo_
  std::uint64_t lastId_ = 0;
  std::uint64_t savedId_ = 0;
};

}  // namespace drafting
