// What a module asks and answers while the host's LISP calls it.
#include "embedded/drafting/host/host_state.h"

using drafting::Modules;
using drafting::Session;
namespace lisp = drafting::lisp;

namespace {

Modules::Call* call() { return Session::active().modules.currentCall(); }

int answer(lisp::Value value) {
  Modules::Call* current = call();
  if (!current) return RTERROR;
  current->result = std::move(value);
  return RTNORM;
}

constexpr int kDeepestList = 200;

// Links for one value; lists stand between RTLB and RTLE. The result is where the next link goes.
// What is nested deeper than kDeepestList comes as nil.
resbuf** appendValue(const lisp::Value& value, resbuf** end, int depth = 0) {
  const auto append = [&end](int type) {
    *end = acutNewRb(type);
    resbuf* link = *end;
    end = &link->rbnext;
    return link;
  };
  if (value.isNil() || depth > kDeepestList) {
    append(RTNIL);
  } else if (const int* whole = value.integer()) {
    // As the host has it, only what 16 bits hold comes as a short integer.
    if (*whole >= -32768 && *whole <= 32767) {
      append(RTSHORT)->resval.rint = static_cast<std::int16_t>(*whole);
    } else {
      append(RTLONG)->resval.rlong = *whole;
    }
  } else if (const double* real = value.real()) {
    append(RTREAL)->resval.rreal = *real;
  } else if (const auto* text = value.text()) {
    append(RTSTR)->resval.rstring = acutNewString(base::wideFromUtf8(*text).c_str());
  } else if (const auto* entity = value.entity()) {
    drafting::setName(append(RTENAME)->resval.rlname, entity->handle, drafting::kEntityMark);
  } else if (const auto* set = value.selectionSet()) {
    drafting::setName(append(RTPICKS)->resval.rlname, static_cast<std::uint64_t>(set->id),
                      drafting::kSelectionMark);
  } else if (value.pair()) {
    append(RTLB);
    for (lisp::Value rest = value; rest.pair(); rest = rest.rest())
      end = appendValue(rest.first(), end, depth + 1);
    *end = acutNewRb(RTLE);
    end = &(*end)->rbnext;
  } else {
    append(RTT);
  }
  return end;
}

}  // namespace

int acedDefun(const wchar_t* name, std::int16_t code) {
  Session& session = Session::active();
  if (session.faults.fails("acedDefun")) return 0;
  return session.modules.defineFunction(drafting::utf8(name), code) ? RTNORM : 0;
}

int acedUndef(const wchar_t* name, std::int16_t code) {
  return Session::active().modules.undefineFunction(drafting::utf8(name), code) ? RTNORM : RTERROR;
}

// Calls go through the entry point all the same: the code is known there.
int acedRegFunc(int (*function)(), int) { return function ? RTNORM : RTERROR; }

int acedGetFunCode() { return call() ? call()->functionCode : 0; }

resbuf* acedGetArgs() {
  if (!call()) return nullptr;
  resbuf* first = nullptr;
  resbuf** end = &first;
  for (const lisp::Value& value : call()->arguments) end = appendValue(value, end);
  return first;
}

int acedRetVoid() { return answer(lisp::Void{}); }
int acedRetNil() { return answer({}); }
int acedRetT() { return answer(lisp::Value::t()); }
int acedRetInt(int value) { return answer(value); }
int acedRetReal(double value) { return answer(value); }
int acedRetStr(const wchar_t* text) { return answer(drafting::utf8(text)); }
