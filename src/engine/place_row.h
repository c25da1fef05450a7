// Draws a circuit's data row into the current drawing through host commands.
#pragma once

#include <string>

#include "platform/acad_result.h"

// Draws the row at the point. RTNORM, or RTERROR after a message; what was drawn before the failure
// stays. The caller has set ATTREQ to 1, so that the scale text answers the marker block's
// attribute, and keeps an undo group open. The current layer, and the current colour after the last
// text, stay as the drawing steps leave them.
int PlaceRow(const ads_point point, const std::wstring& row);
