// The module's LISP functions and what the entry point does with them.
#pragma once

#include <cstddef>
#include <cstdint>

// One LISP function. Its index in the table is the code that the host gives back.
struct LispFunction {
  const wchar_t* name;
  int (*call)();
  int subroutine;  // 1: the host may also call it directly
};

// Row 0 is no function, so that the first code is 1.
constexpr std::int16_t kFirstCode = 1;
constexpr std::int16_t kLastCode = 4;
extern const LispFunction kLispFunctions[kLastCode + 1];

// Make the functions known in the current document, and take them away. registerFunctions stops at
// the first one that the host refuses (RTERROR) and leaves those before it registered.
int registerFunctions();
int removeFunctions();
// Runs the function whose code the host names. 1 when it gave RTNORM, else 3 or, for a code outside
// the table, RTERROR.
int dispatchFunction();

// The functions. Each returns 1, save that yczhlhz has its own results.
int showLibrary();
int hideLibrary();
int placeCircuits();
int setMark();
