// The table of LISP functions and the three small ones.
#include "host/module_functions.h"

#include "host/placing_command.h"
#include "library_window/library_window.h"
#include "module/information.h"
#include "module/value_chain.h"
#include "platform/acad_command.h"
#include "platform/acad_lisp.h"

namespace {

constexpr int kDispatched = 1;
constexpr int kFailed = 3;
// One past the last row, as it has always been; the host never gives that code, since nothing is
// registered under it.
constexpr int kHighestCode = 5;

int callShow() { return showLibrary(); }
int callHide() { return hideLibrary(); }
int callPlace() { return placeCircuits(); }
int callMark() { return setMark(); }

}  // namespace

const LispFunction kLispFunctions[kLastCode + 1] = {
    {L"", nullptr, 0},          {L"showzhlk", callShow, 0}, {L"hidezhlk", callHide, 0},
    {L"yczhlhz", callPlace, 0}, {L"zhlmsgmk", callMark, 0},
};

int registerFunctions() {
  for (std::int16_t code = kFirstCode; code <= kLastCode; ++code) {
    const LispFunction& function = kLispFunctions[code];
    if (acedDefun(function.name, code) == 0) return RTERROR;
    if (function.subroutine) acedRegFunc(function.call, code);
  }
  return RTNORM;
}

int removeFunctions() {
  for (std::int16_t code = kFirstCode; code <= kLastCode; ++code) {
    acedUndef(kLispFunctions[code].name, code);
  }
  return RTNORM;
}

int dispatchFunction() {
  acedRetVoid();  // the value of a function that sets none
  const int code = acedGetFunCode();
  if (code < kFirstCode || code > kHighestCode) return RTERROR;
  if (code > kLastCode) return kFailed;  // behind the table's end there is nothing to call
  return kLispFunctions[code].call() == RTNORM ? kDispatched : kFailed;
}

int showLibrary() {
  ShowLibraryWindow();
  acedRetVoid();
  return 1;
}

int hideLibrary() {
  HideLibraryWindow();
  acedRetVoid();
  return 1;
}

int placeCircuits() { return PlacingCommand().run(); }

int setMark() {
  const ValueChain arguments(acedGetArgs());
  if (!arguments) {
    acutPrintf(L"\n无参数");
    acedRetNil();
    return 1;
  }
  if (arguments.get()->restype != RTSHORT) {
    acutPrintf(L"\n参数应为整数");
    acedRetNil();
    return 1;
  }
  setMessageMark(arguments.get()->resval.rint);
  acedRetT();
  return 1;
}
