// Keyword N of the placing command: adding a symbol of the drawing to the auxiliary library.
#pragma once

// RTNORM, RTCAN when the user cancels, RTERROR otherwise.
int AddSymbolFromDrawing();
