// A module that was made for another version of the host.
#include "platform/acad_module.h"

#if defined(_WIN32)
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

EXPORTED AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*) { return AcRx::kRetOK; }
EXPORTED std::int32_t acrxGetApiVersion() { return kAcadApiVersion + 1; }
