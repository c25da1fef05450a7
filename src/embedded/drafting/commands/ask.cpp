#include "embedded/drafting/commands/ask.h"

#include <algorithm>

#include "embedded/base/numbers.h"

namespace drafting {
namespace {

void addAll(Session& session, Selection& selection) {
  for (Entity* entity = session.database().modelSpace().first; entity; entity = entity->next) {
    selection.push_back(entity->handle);
  }
}

void addOnce(Selection& selection, const Selection& more) {
  for (const Handle handle : more) {
    if (std::find(selection.begin(), selection.end(), handle) == selection.end()) {
      selection.push_back(handle);
    }
  }
}

void removeFrom(Selection& selection, const Selection& some) {
  std::erase_if(selection, [&](Handle handle) {
    return std::find(some.begin(), some.end(), handle) != some.end();
  });
}

// What one answer names; locked and erased entities are left out.
Selection named(Session& session, const Answer& answer) {
  Selection found;
  if (answer.isKeyword("Last")) {
    found = {session.database().lastEntity()};
  } else if (answer.isKeyword("Previous")) {
    found = session.previousSelection;
  } else if (answer.isKeyword("ALL")) {
    addAll(session, found);
  } else {
    found = answer.selection;
  }
  const Database& database = session.database();
  std::erase_if(found, [&](Handle handle) {
    const Entity* entity = database.find<Entity>(handle);
    if (!entity) return true;
    const Layer* layer = database.find<Layer>(entity->layer);
    return layer && layer->locked;
  });
  return found;
}

}  // namespace

std::string shown(double number) { return base::formatG(number); }

void applyCurrentProperties(const Session& session, Entity& entity) {
  const Header& header = session.database().header;
  entity.layer = header.handle("CLAYER");
  entity.colour = static_cast<std::int16_t>(header.integer("CECOLOR"));
  entity.linetypeScale = header.real("CELTSCALE");
  const Handle linetype = header.handle("CELTYPE");
  const auto name = session.database().recordName(linetype);
  if (name == "ByBlock" || name == "BYBLOCK") {
    entity.linetype = kByBlock;
  } else {
    entity.linetype = name == "ByLayer" || name == "BYLAYER" || name.empty() ? kByLayer : linetype;
  }
}

Handle drawEntity(Session& session, std::unique_ptr<Entity> entity) {
  applyCurrentProperties(session, *entity);
  Database& database = session.database();
  return database.append(database.modelSpace(), std::move(entity));
}

std::optional<Selection> askSelection(Session& session) {
  Selection selection;
  bool removing = false;
  while (true) {
    const Answer answer = session.line.ask(
        {.kind = Ask::Selection,
         .message = removing ? message(session, "\n删除对象: ", "\nRemove objects: ")
                             : message(session, "\n选择对象: ", "\nSelect objects: "),
         .keywords = "Last Previous ALL Remove Add Undo"});
    if (answer.cancelled()) return {};
    if (answer.entered()) break;
    if (answer.isKeyword("Remove") || answer.isKeyword("Add")) {
      removing = answer.isKeyword("Remove");
      continue;
    }
    if (answer.isKeyword("Undo")) {
      if (!selection.empty()) selection.pop_back();
      continue;
    }
    const Selection found = named(session, answer);
    if (!session.line.answersComeFromArguments()) {
      session.print("\n" + std::to_string(found.size()) + message(session, " 个", " found"));
    }
    removing ? removeFrom(selection, found) : addOnce(selection, found);
  }
  session.previousSelection = selection;
  return selection;
}

}  // namespace drafting
