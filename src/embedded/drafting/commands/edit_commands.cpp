// ERASE: whole entities, selected one by one or by set.
#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

void erase(Session& session) {
  const auto selection = askSelection(session);
  if (!selection) return;
  for (const Handle handle : *selection) session.database().erase(handle);
}

}  // namespace

void addEditCommands(CommandTable& table) {
  table.add({.name = "ERASE", .run = erase});
  table.addAlias("E", "ERASE");
}

}  // namespace drafting
