// The one place where the controls wait, so that tests can count the pauses instead of timing them.
#pragma once

#include <functional>

void pauseFor(int milliseconds);
// Who waits from now on; an empty function brings back the real pause.
void setPause(std::function<void(int)> pause);
