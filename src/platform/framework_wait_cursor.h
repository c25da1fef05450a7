// The wait cursor during long work. Programs without windows have none.
#pragma once

#include <functional>

enum class WaitCursor { Begin, Restore };

// Begin shows it; Restore shows it anew, after a message box may have taken it away. The mouse's
// next movement over a window takes it off.
void BeginWaitCursor();
void RestoreWaitCursor();

// Who shows it from now on; an empty function: nobody.
void setWaitCursorHandler(std::function<void(WaitCursor)> handler);
