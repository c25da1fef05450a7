// The registry through which modules find the host's services, and the services in it.
#include "embedded/drafting/host/host_state.h"

using drafting::Session;

namespace {

class DynamicLinker : public AcRxDynamicLinker {
 public:
  bool registerAppMDIAware(void* package) override {
    return Session::active().modules.isPackage(package);
  }
};

class CommandStack : public AcEdCommandStack {
 public:
  bool addCommand(const wchar_t* group, const wchar_t* globalName, const wchar_t*, std::int32_t,
                  Function function) override {
    drafting::Modules& modules = Session::active().modules;
    modules.noteCommandGroup(drafting::utf8(group));
    void* package = modules.currentCall() ? modules.currentCall()->package : nullptr;
    return Session::active().commands.add({.name = drafting::utf8(globalName),
                                           .run =
                                               [package, function](Session& session) {
                                                 session.modules.runCommand(
                                                     package, [function] { function(); });
                                               },
                                           .group = drafting::utf8(group)});
  }
  bool removeGroup(const wchar_t* group) override {
    return Session::active().commands.removeGroup(drafting::utf8(group));
  }
};

class Registry : public AcRxDictionary {
 public:
  AcRxObject* at(const wchar_t* name) const override {
    static DynamicLinker linker;
    static CommandStack stack;
    const std::wstring_view wanted = name;
    if (wanted == kAcrxDynamicLinker) return &linker;
    return wanted == kAcadRegisteredCommands ? &stack : nullptr;
  }
};

constexpr AcRxClass kObjectClass{L"AcRxObject", nullptr};

}  // namespace

const AcRxClass* AcRxObject::desc() { return &kObjectClass; }
const AcRxClass* AcRxObject::isA() const { return desc(); }

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
  const AcRxClass* one = this;
  while (one && one != other) one = one->parent_;
  return one != nullptr;
}

AcRxDictionary* acrxSysRegistry() {
  static Registry registry;
  return &registry;
}

bool acrxUnlockApplication(void* package) { return Session::active().modules.isPackage(package); }

HWND adsw_acadMainWnd() { return Session::active().mainWindow; }
