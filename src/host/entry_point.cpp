// The module's door: acrxEntryPoint takes the host's messages, acrxGetApiVersion the hand-shake.
#include <iterator>

#include "host/module_functions.h"
#include "library_window/library_window.h"
#include "module/module_state.h"
#include "platform/acad.h"
#include "platform/db_object.h"
#include "platform/framework_module.h"

#if defined(_WIN32)
#define VORNIK_EXPORT __declspec(dllexport)
#else
#define VORNIK_EXPORT __attribute__((visibility("default")))
#endif

namespace {

constexpr const wchar_t* kCommandGroup = L"Vornikplan10";
constexpr std::int32_t kSampleFlags = 2;

void sampleCommand() {}

constexpr TqCmdTable kCommands[] = {{L"sample", sampleCommand, kSampleFlags}};

void initialiseModule() {
  AFX_EXTENSION_MODULE& record = extensionModule();
  if (!AfxInitExtensionModule(record, moduleInstance())) return;
  new CDynLinkLibrary(record, false);  // the framework's from here on
}

void declareMdiAware(void* package) {
  AcRxObject* linker = acrxSysRegistry()->at(kAcrxDynamicLinker);
  if (linker) static_cast<AcRxDynamicLinker*>(linker)->registerAppMDIAware(package);
}

void startApplication() {
  TqDefineCommand(kCommandGroup, kCommands, static_cast<int>(std::size(kCommands)), 0);
  setHostWindow(adsw_acadMainWnd());
  if (!libraryWindow()) setLibraryWindow(makeLibraryWindow(hostWindow()));
}

void endApplication() {
  AcRxObject* stack = acrxSysRegistry()->at(kAcadRegisteredCommands);
  if (stack) static_cast<AcEdCommandStack*>(stack)->removeGroup(kCommandGroup);
  if (!libraryWindow()) return;
  libraryWindow()->DestroyWindow();
  setLibraryWindow(nullptr);
}

}  // namespace

extern "C" VORNIK_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* package) {
  switch (message) {
    case AcRx::kInitAppMsg:
      initialiseModule();
      acrxUnlockApplication(package);
      declareMdiAware(package);
      startApplication();
      break;
    case AcRx::kUnloadAppMsg:
      endApplication();
      AfxTermExtensionModule(extensionModule(), false);
      break;
    case AcRx::kLoadDwgMsg: registerFunctions(); break;
    case AcRx::kUnloadDwgMsg: removeFunctions(); break;
    case AcRx::kInvkSubrMsg: dispatchFunction(); break;
    default: break;
  }
  return AcRx::kRetOK;
}

extern "C" VORNIK_EXPORT std::int32_t acrxGetApiVersion() { return kAcadApiVersion; }
