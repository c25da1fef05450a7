// The host's result codes, value types and value chains (resbuf), used by every other call of it.
#pragma once

#include <cstdint>

// Value types: of a command's arguments, of LISP values, of entries in a chain.
constexpr int RTNONE = 5000;  // no value, ends an argument list; as a result: Enter
constexpr int RTREAL = 5001;
constexpr int RTPOINT = 5002;  // 2-D point; three doubles are passed and z is ignored
constexpr int RTSHORT = 5003;
constexpr int RTSTR = 5005;
constexpr int RTENAME = 5006;
constexpr int RTPICKS = 5007;
constexpr int RT3DPOINT = 5009;
constexpr int RTLONG = 5010;
constexpr int RTVOID = 5014;
constexpr int RTLB = 5016;  // list begin
constexpr int RTLE = 5017;  // list end
constexpr int RTNIL = 5019;
constexpr int RTDXF0 = 5020;  // group 0 where 0 would end an argument list
constexpr int RTT = 5021;

// Results of calls.
constexpr int RTNORM = 5100;
constexpr int RTERROR = -5001;
constexpr int RTCAN = -5002;
constexpr int RTREJ = -5003;
constexpr int RTKWORD = -5005;

using ads_real = double;
using ads_point = ads_real[3];
// Names an entity or a selection set; {0, 0} names nothing. Good until the drawing is closed, or
// for a set until acedSSFree.
using ads_name = std::intptr_t[2];

// One link of a value chain. Which member of the union counts follows from restype: a value type
// above, or a group code. Chains come from the heap of acutNewRb and go back by acutRelRb, or stand
// on the stack with borrowed texts as a filter.
struct resbuf {
  resbuf* rbnext;
  std::int16_t restype;
  union {
    ads_real rreal;
    ads_real rpoint[3];
    std::int16_t rint;
    std::int32_t rlong;
    wchar_t* rstring;  // owned by the chain when it came from acutNewRb or acutBuildList
    ads_name rlname;
    struct {
      std::int16_t clen;
      char* buf;
    } rbinary;
  } resval;
};

// A new link without value or successor; null when the type is unknown.
resbuf* acutNewRb(int type);

// A chain from pairs of type and value, ended by RTNONE or 0. Values: RTREAL double; RTPOINT and
// RT3DPOINT pointer to three doubles; RTSHORT int; RTLONG int; RTSTR and text groups wide text,
// which is copied; a group code takes the value kind of its range. Null on an unknown type.
resbuf* acutBuildList(int type, ...);

// Frees a chain with its texts; null is fine. Always RTNORM.
int acutRelRb(resbuf* chain);

// A heap copy of a text, for a link's rstring.
wchar_t* acutNewString(const wchar_t* text);
