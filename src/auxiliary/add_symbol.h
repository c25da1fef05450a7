// Makes a block reference of the drawing a new item of the bar's open folder: a drawing of its own,
// a slide in the group's library, keys and an icon.
#pragma once

class AuxiliaryLibrary;

// Asks for the reference. RTNORM; RTCAN when the user cancels; RTERROR on Enter, or on a failure,
// after which neither keys nor drawing are left.
int AddSymbolFromDrawing(AuxiliaryLibrary& library);
