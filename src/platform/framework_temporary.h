// The lock of temporary objects, which FromHandle gives: while it is held, none of them goes. Code
// that pumps messages itself and keeps such objects across the pumping holds it.
#pragma once

void AfxLockTempMaps();
// Deletes the temporary objects if that was the last lock. True while others hold it.
bool AfxUnlockTempMaps(bool deleteTemporary = true);
