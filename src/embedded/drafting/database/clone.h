// Copies between drawings: what INSERT of a file does, and writing a block out. Layers, linetypes,
// styles, applications and blocks go by name: what the target has already counts, what it lacks is
// copied along.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drafting/database/database.h"

namespace drafting {

struct CloneResult {
  Handle block = 0;  // the new block's record
  std::vector<std::string>
      leftBehind;  // a sentence for each kind of thing that couldn't come along
};

// Makes a block named `name` in `target` from the model space of `source`, whose insertion base
// becomes the block's base point. The name must be free.
CloneResult cloneAsBlock(Database& target, const Database& source, std::string_view name);

// Copies the source's model space to the end of the target's, moved by `by`. A sentence for each
// kind of thing that couldn't come along.
std::vector<std::string> cloneMoved(Database& target, const Database& source, const Point3& by);

struct WrittenBlock {
  std::unique_ptr<Database> drawing;
  std::vector<std::string> leftBehind;
};

// A new drawing whose model space is the block's content and whose insertion base the block's base
// point. Units and scales, layer 0 and the Standard text style are those of `source`.
WrittenBlock drawingOfBlock(const Database& source, const BlockRecord& block);
// The same of some entities, in the order given, with that insertion base. What isn't there is
// left out.
WrittenBlock drawingOfEntities(const Database& source, std::span<const Handle> entities,
                               const Point3& base);

}  // namespace drafting
