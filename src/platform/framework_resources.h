// Resources by module: those of the framework's linked libraries are searched, last linked first,
// then those of the program.
#pragma once

#include "platform/framework_module.h"
#include "platform/framework_system.h"

// The module that has the resource; the program's when none has it.
HINSTANCE AfxFindResourceHandle(const wchar_t* name, const wchar_t* type);
// The program's instance.
HINSTANCE AfxGetInstanceHandle();

// Registers a window class once per process. True also when it is there already.
BOOL AfxRegisterClass(const WNDCLASSW* windowClass);
// The name of a window class of that style, made when there is none yet. The name stays valid.
const wchar_t* AfxRegisterWndClass(UINT style, HCURSOR cursor = nullptr,
                                   HBRUSH background = nullptr, HICON icon = nullptr);
