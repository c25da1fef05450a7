// Recording of steps, and going back and forth over them.
//
// Taking back: first every object gets its earlier image (erased ones are made again), then the
// links are undone in reverse order, then the objects that the step had made go. Neighbours named
// by a link that came and went within the step are stood in for by placeholders.
#include "embedded/drafting/database/journal.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/dwg/object_image.h"

namespace drafting {

void Journal::setRecording(bool on) {
  close();
  recording_ = on;
}

void Journal::begin(std::string_view name) {
  if (depth_++ > 0) return;
  close();
  open();
  current_.name = name;
}

void Journal::end() {
  if (depth_ == 0) return;
  if (--depth_ == 0) close();
}

bool Journal::pending() const { return open_ && !(current_.parts.empty() && part_.empty()); }

std::size_t Journal::undoSteps() const { return undo_.size() + (depth_ == 0 && pending() ? 1 : 0); }

std::string_view Journal::undoName() const {
  if (depth_ == 0 && pending()) return current_.name;
  return undo_.empty() ? std::string_view() : undo_.back().name;
}

bool Journal::undo() {
  if (depth_ > 0) return false;
  close();
  if (undo_.empty()) return false;
  move(undo_, redo_, false);
  return true;
}

bool Journal::redo() {
  if (depth_ > 0) return false;
  close();
  if (redo_.empty()) return false;
  move(redo_, undo_, true);
  return true;
}

void Journal::move(std::vector<JournalStep>& from, std::vector<JournalStep>& to, bool forward) {
  to.push_back(std::move(from.back()));
  from.pop_back();
  apply(to.back(), forward);
  while (!marks_.empty() && marks_.back() > undo_.size()) marks_.pop_back();
  tell(forward ? JournalEvent::Kind::Redone : JournalEvent::Kind::Undone, to.back());
}

void Journal::mark() {
  if (depth_ == 0) close();
  marks_.push_back(undo_.size());
}

std::size_t Journal::undoToMark() {
  if (depth_ > 0) return 0;
  close();
  std::size_t target = 0;
  if (!marks_.empty()) {
    target = marks_.back();
    marks_.pop_back();
  }
  std::size_t taken = 0;
  while (undo_.size() > target && undo()) ++taken;
  return taken;
}

bool Journal::changedSinceSave() const { return pending() || stateId() != savedId_; }

void Journal::markSaved() {
  if (depth_ == 0) close();
  savedId_ = stateId();
}

void Journal::willChange(const Object& object) {
  if (!recording_) return;
  JournalPart& part = this->part();
  const auto [at, isNew] = touched_.try_emplace(object.handle, part.changes.size());
  if (isNew) part.changes.push_back({object.handle, encodeImage(object), {}});
}

void Journal::created(Handle handle) {
  if (!recording_) return;
  JournalPart& part = this->part();
  const auto [at, isNew] = touched_.try_emplace(handle, part.changes.size());
  if (isNew) part.changes.push_back({handle, {}, {}});
}

void Journal::link(const Link& link) {
  if (recording_) part().links.push_back(link);
}

void Journal::willChangeVariable(int index) {
  if (!recording_) return;
  auto& variables = part().variables;
  const bool known = std::any_of(variables.begin(), variables.end(),
                                 [index](const auto& change) { return change.index == index; });
  if (!known) variables.push_back({index, database_.header.at(index), {}});
}

JournalPart& Journal::part() {
  if (!open_) open();
  return part_;
}

void Journal::open() {
  open_ = true;
  current_ = {};
  current_.id = ++lastId_;
}

void Journal::settle() {
  if (open_ && follower) closePart();
}

void Journal::closePart() {
  touched_.clear();
  for (JournalChange& change : part_.changes) {
    if (const Object* object = database_.find(change.handle)) change.after = encodeImage(*object);
  }
  for (JournalVariable& change : part_.variables) change.after = database_.header.at(change.index);
  // What came and went leaves no image, but its links may name it as a neighbour: they stay.
  std::erase_if(part_.changes, [](const auto& c) { return c.before == c.after; });
  std::erase_if(part_.variables, [](const auto& c) { return c.before == c.after; });
  if (part_.empty()) return;
  JournalStep news{current_.id, current_.name, {}};
  news.parts.push_back(std::exchange(part_, {}));
  tell(JournalEvent::Kind::Done, news);
  current_.parts.push_back(std::move(news.parts.front()));
}

void Journal::close() {
  if (!open_) return;
  closePart();
  open_ = false;
  if (current_.parts.empty()) return;
  undo_.push_back(std::move(current_));
  redo_.clear();
}

void Journal::tell(JournalEvent::Kind kind, const JournalStep& step) {
  if (follower) follower({kind, database_.nextHandle()}, step);
}

bool Journal::replay(const JournalEvent& event, JournalStep step) {
  using Kind = JournalEvent::Kind;
  close();
  const bool forward = event.kind != Kind::Undone;
  if (!apply(step, forward)) return false;
  database_.reserveHandles(event.nextHandle);
  lastId_ = std::max(lastId_, step.id);
  if (event.kind == Kind::Done) redo_.clear();
  auto& from = forward ? redo_ : undo_;
  auto& to = forward ? undo_ : redo_;
  if (!from.empty() && from.back().id == step.id) from.pop_back();
  if (event.kind == Kind::Done && !to.empty() && to.back().id == step.id) {
    std::move(step.parts.begin(), step.parts.end(), std::back_inserter(to.back().parts));
  } else {
    to.push_back(std::move(step));
  }
  return true;
}

bool Journal::apply(const JournalStep& step, bool forward) {
  bool good = true;
  const std::size_t count = step.parts.size();
  for (std::size_t i = 0; i < count; ++i) {
    good = apply(step.parts[forward ? i : count - 1 - i], forward) && good;
  }
  return good;
}

bool Journal::apply(const JournalPart& step, bool forward) {
  bool good = true;
  for (const JournalChange& change : step.changes) {
    const std::string& image = forward ? change.after : change.before;
    if (!image.empty()) good = applyImage(change.handle, image) && good;
  }
  std::vector<Handle> placeholders;
  for (const Link& link : step.links) {
    if (link.where != Link::Where::Chain || database_.find(link.subject)) continue;
    std::unique_ptr<Object> object = std::make_unique<SeqEnd>();
    object->handle = link.subject;
    database_.adopt(std::move(object));
    placeholders.push_back(link.subject);
  }
  if (forward) {
    for (const Link& link : step.links) applyLink(link, link.made);
  } else {
    for (auto link = step.links.rbegin(); link != step.links.rend(); ++link) {
      applyLink(*link, !link->made);
    }
  }
  for (const JournalChange& change : step.changes) {
    if ((forward ? change.after : change.before).empty()) database_.destroy(change.handle);
  }
  for (const Handle handle : placeholders) database_.destroy(handle);
  for (const JournalVariable& change : step.variables) {
    database_.header.at(change.index) = forward ? change.after : change.before;
  }
  return good;
}

bool Journal::applyImage(Handle handle, const std::string& image) {
  if (Object* object = database_.find(handle)) {
    if (object->kind != kindOfImage(image)) return false;
    database_.forget(*object);
    const bool whole = decodeImage(image, *object);
    database_.remember(*object);
    return whole;
  }
  std::unique_ptr<Object> object = makeObject(kindOfImage(image));
  object->handle = handle;
  const bool whole = decodeImage(image, *object);
  Object& made = *object;
  if (!database_.adopt(std::move(object))) return false;
  database_.remember(made);
  return whole;
}

void Journal::applyLink(const Link& link, bool make) {
  if (link.where == Link::Where::Table) {
    database_.setRecordPlace(link.owner, link.subject, static_cast<std::size_t>(link.previous),
                             make);
    return;
  }
  Entity* entity = database_.find<Entity>(link.subject);
  if (!entity) return;
  Entity* previous = database_.find<Entity>(link.previous);
  Entity* next = database_.find<Entity>(link.next);
  if (make) {
    database_.joinChain(link.owner, *entity, previous, next);
  } else {
    database_.leaveChain(link.owner, *entity);
  }
}

}  // namespace drafting
