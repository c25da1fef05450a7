// Recording of steps, and going back and forth over them.
//
// Taking back: first every object gets its earlier image (erased ones are made again), then the
// links are undone in reverse order, then the objects that the step had made go. Neighbours named
// by a link that came and went within the step are stood in for by placeholders.
#include "embedded/drafting/database/journal.h"

#include <algorithm>

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
  current_.name = name;
  open_ = true;
}

void Journal::end() {
  if (depth_ == 0) return;
  if (--depth_ == 0) close();
}

std::size_t Journal::undoSteps() const {
  const bool pending = open_ && depth_ == 0 && !current_.empty();
  return undo_.size() + (pending ? 1 : 0);
}

std::string_view Journal::undoName() const {
  if (open_ && depth_ == 0 && !current_.empty()) return current_.name;
  return undo_.empty() ? std::string_view() : undo_.back().name;
}

bool Journal::undo() {
  if (depth_ > 0) return false;
  close();
  if (undo_.empty()) return false;
  redo_.push_back(std::move(undo_.back()));
  undo_.pop_back();
  apply(redo_.back(), false);
  while (!marks_.empty() && marks_.back() > undo_.size()) marks_.pop_back();
  return true;
}

bool Journal::redo() {
  if (depth_ > 0) return false;
  close();
  if (redo_.empty()) return false;
  undo_.push_back(std::move(redo_.back()));
  redo_.pop_back();
  apply(undo_.back(), true);
  return true;
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

bool Journal::changedSinceSave() const {
  return (open_ && !current_.empty()) || stateId() != savedId_;
}

void Journal::markSaved() {
  if (depth_ == 0) close();
  savedId_ = stateId();
}

void Journal::willChange(const Object& object) {
  if (!recording_) return;
  Step& step = this->step();
  const auto [at, isNew] = touched_.try_emplace(object.handle, step.changes.size());
  if (isNew) step.changes.push_back({object.handle, encodeImage(object), {}});
}

void Journal::created(Handle handle) {
  if (!recording_) return;
  Step& step = this->step();
  const auto [at, isNew] = touched_.try_emplace(handle, step.changes.size());
  if (isNew) step.changes.push_back({handle, {}, {}});
}

void Journal::link(const Link& link) {
  if (recording_) step().links.push_back(link);
}

void Journal::willChangeVariable(int index) {
  if (!recording_) return;
  auto& variables = step().variables;
  const bool known = std::any_of(variables.begin(), variables.end(),
                                 [index](const auto& change) { return change.index == index; });
  if (!known) variables.push_back({index, database_.header.at(index), {}});
}

Journal::Step& Journal::step() {
  open_ = true;
  return current_;
}

void Journal::close() {
  if (!open_) return;
  open_ = false;
  touched_.clear();
  for (Change& change : current_.changes) {
    if (const Object* object = database_.find(change.handle)) change.after = encodeImage(*object);
  }
  for (VariableChange& change : current_.variables)
    change.after = database_.header.at(change.index);
  // What came and went leaves no image, but its links may name it as a neighbour: they stay.
  std::erase_if(current_.changes, [](const Change& c) { return c.before == c.after; });
  std::erase_if(current_.variables, [](const auto& c) { return c.before == c.after; });
  if (!current_.empty()) {
    current_.id = ++lastId_;
    undo_.push_back(std::move(current_));
    redo_.clear();
  }
  current_ = {};
}

void Journal::apply(const Step& step, bool forward) {
  for (const Change& change : step.changes) {
    const std::string& image = forward ? change.after : change.before;
    if (!image.empty()) applyImage(change.handle, image);
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
  for (const Change& change : step.changes) {
    if ((forward ? change.after : change.before).empty()) database_.destroy(change.handle);
  }
  for (const Handle handle : placeholders) database_.destroy(handle);
  for (const VariableChange& change : step.variables) {
    database_.header.at(change.index) = forward ? change.after : change.before;
  }
}

void Journal::applyImage(Handle handle, const std::string& image) {
  if (Object* object = database_.find(handle)) {
    database_.forget(*object);
    decodeImage(image, *object);
    database_.remember(*object);
    return;
  }
  std::unique_ptr<Object> object = makeObject(kindOfImage(image));
  object->handle = handle;
  decodeImage(image, *object);
  Object& made = *object;
  if (database_.adopt(std::move(object))) database_.remember(made);
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
