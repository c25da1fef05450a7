// Makes placed symbols take their colour from the layer.
#pragma once

#include "platform/acad_entities.h"

// The reference goes by layer, everything inside its block and the blocks within by block. The
// entity must be open for write. A block that is used twice is walked twice; one that can't be
// opened is left as it is.
void NormaliseBlockColours(AcDbEntity& reference);
