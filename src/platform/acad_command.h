// The host's command line: output, commands run by a module, prompts, system variables, and the
// small text and point helpers beside them.
#pragma once

#include "platform/acad_result.h"

// Wide characters, terminator included, that a caller's text buffer must hold; longer answers are
// cut to it.
constexpr int kAcadTextLimit = 512;

// Prints on the command line. Formatting as CString::Format has it: %s is wide text on every
// system, and numbers ignore the locale. Returns RTNORM.
int acutPrintf(const wchar_t* format, ...);

// Runs a command with typed answers: pairs of a value type and its value, ended by RTNONE or 0.
//   RTSTR const wchar_t*   RTREAL double   RTPOINT, RT3DPOINT const double* (three)
//   RTSHORT int   RTLONG int   RTENAME, RTPICKS ads_name
// Answers that run out leave attribute prompts at their defaults and cancel anything else.
// RTNORM when the command ended, RTCAN when it was cancelled, RTERROR when it could not run.
int acedCommand(int type, ...);

// Arms the next prompt with keywords separated by blanks; bits of flags: 1 forbids Enter.
int acedInitGet(int flags, const wchar_t* keywords);
// RTNORM with the keyword as it was armed, RTNONE on Enter, RTCAN, RTERROR. The buffer holds
// kAcadTextLimit characters.
int acedGetKword(const wchar_t* prompt, wchar_t* keyword);

// System variables. acedGetVar fills a link with type and value (a text is a new one, which the
// caller frees with the chain or by acutRelRb). RTNORM, or RTERROR for an unknown name, a wrong
// type or a value out of range.
int acedGetVar(const wchar_t* name, resbuf* value);
int acedSetVar(const wchar_t* name, const resbuf* value);

// Reads a text as a distance; unit 2 is decimal, exponents included. RTNORM or RTERROR.
int acdbDisToF(const wchar_t* text, int unit, ads_real* value);
// The point at a polar offset, angle in radians; z is kept.
void acutPolar(const ads_point from, double angle, double distance, ads_point to);
