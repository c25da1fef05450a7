// The module's two exported functions, for a program that has the module linked in.
#pragma once

#include "platform/acad_module.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* package);
extern "C" std::int32_t acrxGetApiVersion();
