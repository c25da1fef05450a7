// The system's window interface, which the framework's window headers stand on. Windows build only;
// whoever needs a system type includes the framework header that uses it.
#pragma once

// The second leans on the first.
// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on
