// Temporary objects of all kinds: who keeps some tells it here, and all are deleted together.
#pragma once

namespace framework {

// Registers a function that deletes the temporary objects of one kind. Called once per kind.
bool addTemporaryKind(void (*deleteAll)());

// Called at idle time. Nothing happens while the maps are locked.
void deleteTemporaryObjects();

}  // namespace framework
