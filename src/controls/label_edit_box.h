// How a label's edit box grows with its text. It never shrinks downward or in a wrapped label, and
// never leaves its bar.
#pragma once

#include <optional>

#include "platform/framework_shapes.h"

// The box after a character in an item of the small view, whose label stands on one line; its right
// edge follows the text, also to the left. Width: the text's.
RECT lineBox(RECT box, const RECT& parent, int textWidth);
// In the large view: none when the box stays. The text is measured wrapped at the box's width.
std::optional<RECT> wrappedBox(RECT box, const RECT& parent, const SIZE& text);
