// Functions that a module offers to the host's LISP: registration, arguments, results.
#pragma once

#include "platform/acad_result.h"

// Makes a function known in the current document. The host calls it by sending kInvkSubrMsg, and
// acedGetFunCode then tells the code. RTNORM, or 0 on failure.
int acedDefun(const wchar_t* name, std::int16_t code);
// Takes it away again. RTNORM, or RTERROR when name and code aren't registered together.
int acedUndef(const wchar_t* name, std::int16_t code);
// Lets the host call the function directly instead of sending the message.
int acedRegFunc(int (*function)(), int code);

// The rest holds during kInvkSubrMsg only.
int acedGetFunCode();
// The call's arguments, or null when there are none. The caller releases the chain.
resbuf* acedGetArgs();

// Each sets the call's value; the last one stands.
int acedRetVoid();
int acedRetNil();
int acedRetT();
int acedRetInt(int value);
int acedRetReal(double value);
int acedRetStr(const wchar_t* text);
