// The recording host's registry and what a module finds in it, and the module's record.
#include "platform/acad_module.h"
#include "platform/db_object.h"
#include "platform/framework_module.h"
#include "support/recording_host.h"

using test::host;

namespace {

class Linker : public AcRxDynamicLinker {
 public:
  bool registerAppMDIAware(void* package) override {
    host().steps.emplace_back(L"registerAppMDIAware");
    host().mdiAware = package;
    return true;
  }
};

class CommandStack : public AcEdCommandStack {
 public:
  bool addCommand(const wchar_t* group, const wchar_t* name, const wchar_t*, std::int32_t flags,
                  Function) override {
    host().groups.push_back(std::wstring(group) + L":" + name + L":" + std::to_wstring(flags));
    return true;
  }
  bool removeGroup(const wchar_t* group) override {
    host().steps.push_back(std::wstring(L"removeGroup ") + group);
    return std::erase_if(host().groups, [&](const std::wstring& entry) {
             return entry.starts_with(std::wstring(group) + L":");
           }) > 0;
  }
};

class Registry : public AcRxDictionary {
 public:
  AcRxObject* at(const wchar_t* name) const override {
    static Linker linker;
    static CommandStack stack;
    if (std::wstring(name) == L"DynamicLinker") return &linker;
    return std::wstring(name) == L"ACAD_REGISTERED_COMMANDS" ? &stack : nullptr;
  }
};

}  // namespace

AcRxDictionary* acrxSysRegistry() {
  static Registry registry;
  return &registry;
}

bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& record, HINSTANCE instance) {
  host().steps.emplace_back(L"AfxInitExtensionModule");
  if (host().failing(L"AfxInitExtensionModule")) return false;
  record = {true, instance, instance};
  return true;
}

bool acrxUnlockApplication(void* package) {
  host().steps.emplace_back(L"acrxUnlockApplication");
  host().unlocked = package;
  return true;
}

HWND adsw_acadMainWnd() {
  host().steps.emplace_back(L"adsw_acadMainWnd");
  return host().mainWindow;
}

int TqDefineCommand(const wchar_t* group, const TqCmdTable* table, int rows, int last) {
  host().steps.push_back(std::wstring(L"TqDefineCommand ") + group + L" " + std::to_wstring(rows) +
                         L" " + std::to_wstring(last));
  auto* stack = static_cast<AcEdCommandStack*>(acrxSysRegistry()->at(kAcadRegisteredCommands));
  for (int i = 0; i < rows; ++i) {
    stack->addCommand(group, table[i].name, table[i].name, table[i].flags, table[i].function);
  }
  return rows;
}
