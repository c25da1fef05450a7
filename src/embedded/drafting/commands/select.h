// How commands ask for entities: whole selections, and single ones.
#pragma once

#include <optional>

#include "embedded/drafting/commands/ask.h"
#include "embedded/drafting/picking/region.h"

namespace drafting {

struct SelectOptions {
  bool lockedToo = false;  // entities of locked layers count: they are only looked at
  // Asked before the first "Select objects:"; empty for none.
  std::string heading = {};
};

// What was selected, and where the last crossing window lay (STRETCH goes by it).
struct Selected {
  Selection entities;
  std::optional<Region> crossing;
};

// Asks until Enter: points to pick at (one that meets nothing opens a window: to the right what
// lies inside, to the left what it crosses too), W, C, BOX, F, WP, CP, L, P, ALL, R, A, U, SI,
// names and sets. Kept as the previous selection. Nothing if cancelled.
std::optional<Selected> askSelected(Session& session, const SelectOptions& options = {});
std::optional<Selection> askSelection(Session& session, const SelectOptions& options = {});

// Half the side of the pick box, in drawing units.
double pickReach(const Session& session);

// One entity, by a pick or a name.
struct EntityAnswer {
  Handle handle = 0;  // 0: none was hit, or there was another answer
  Point3 point;       // where it was picked
  bool picked = false;
  Answer answer;
};
// A pick that hits nothing is told and asked again.
EntityAnswer askEntity(Session& session, const std::string& message,
                       const std::string& keywords = {});

// Whether its layer lets it be changed; says so if not.
bool mayChange(Session& session, const Entity& entity);

}  // namespace drafting
