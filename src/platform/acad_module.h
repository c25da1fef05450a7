// How the host and a module meet: entry messages, the system registry and the two services in it
// that the module asks for, the host's main window.
#pragma once

#include <cstdint>

// The system's window handle. Declared here the way the system headers do, so that no caller needs
// them; null where there are no windows.
struct HWND__;
using HWND = HWND__*;

struct AcRx {
  enum AppMsgCode : std::int32_t {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
  };
  enum AppRetCode : std::int32_t { kRetOK = 0, kRetError = 3 };
};

// What every module exports. The first takes one message of AcRx::AppMsgCode and the host's pointer
// for the module; the second is the version hand-shake, whose value the host compares with
// kAcadApiVersion before it sends the first message.
using AcrxEntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode message, void* package);
using AcrxGetApiVersion = std::int32_t (*)();
constexpr std::int32_t kAcadApiVersion = 18;

// Run-time class of a host object. Objects of it are static and never freed.
class AcRxClass {
 public:
  constexpr AcRxClass(const wchar_t* name, const AcRxClass* parent)
      : name_(name), parent_(parent) {}
  const wchar_t* name() const { return name_; }
  const AcRxClass* myParent() const { return parent_; }
  bool isDerivedFrom(const AcRxClass* other) const;

 private:
  const wchar_t* name_;
  const AcRxClass* parent_;
};

class AcRxObject {
 public:
  virtual ~AcRxObject() = default;
  virtual const AcRxClass* isA() const;
  bool isKindOf(const AcRxClass* other) const { return isA()->isDerivedFrom(other); }
  static const AcRxClass* desc();

 protected:
  AcRxObject() = default;
  AcRxObject(const AcRxObject&) = default;
  AcRxObject& operator=(const AcRxObject&) = default;
};

// Names to services. The host owns dictionary and entries.
class AcRxDictionary : public AcRxObject {
 public:
  virtual AcRxObject* at(const wchar_t* name) const = 0;  // null when there is no such entry
};

constexpr const wchar_t* kAcrxDynamicLinker = L"DynamicLinker";
constexpr const wchar_t* kAcadRegisteredCommands = L"ACAD_REGISTERED_COMMANDS";

// Entry kAcrxDynamicLinker.
class AcRxDynamicLinker : public AcRxObject {
 public:
  // Declares the module fit for several documents. False when the package is unknown.
  virtual bool registerAppMDIAware(void* package) = 0;
};

// Entry kAcadRegisteredCommands: the commands that modules add, in named groups.
class AcEdCommandStack : public AcRxObject {
 public:
  using Function = void (*)();
  // False when the group has a command of that name. Names are copied.
  virtual bool addCommand(const wchar_t* group, const wchar_t* globalName, const wchar_t* localName,
                          std::int32_t flags, Function function) = 0;
  virtual bool removeGroup(const wchar_t* group) = 0;  // false when there is no such group
};

AcRxDictionary* acrxSysRegistry();
// Lets the module be unloaded by the user. False when the package is unknown.
bool acrxUnlockApplication(void* package);
// The host's main window; null when it runs without windows.
HWND adsw_acadMainWnd();
