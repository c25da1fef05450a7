// The drawing's memory for auxiliary symbols: one POINT with extended data of ZHLKFZGN that holds
// where the symbols of the last circuit stand and which symbol each folder of the bar placed.
//
//   1001 ZHLKFZGN   1070 slot count   1000 handle or "空", once a slot   1011 position
#pragma once

#include "platform/acad_database.h"
#include "platform/acad_result.h"

// RTNORM with the marker's position and the slots' symbols. RTERROR with (0, 0) and no slots: there
// is no marker (no message), or it can't be read (a message). Of several markers the first of the
// selection counts.
int ReadAuxMarker(AcGePoint2d& point, AcDbObjectIdArray& slots);

// Erases all markers and makes a new one. RTNORM, or RTERROR after a message.
int WriteAuxMarker(const AcGePoint2d& point, const AcDbObjectIdArray& slots);

// Places the symbol chosen in the bar, in place of the one that its folder placed before, and notes
// it in the folder's slot if there is such a slot. 0, also when nothing is chosen; RTERROR after a
// message when the new symbol can't be found.
int PlaceAuxSymbol(const ads_point point, double scale, AcDbObjectIdArray& slots);
