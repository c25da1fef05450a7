// The module's process-attach routine.
#include <windows.h>

#include "module/module_state.h"

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) setModuleInstance(instance);
  return TRUE;
}
