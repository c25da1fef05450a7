// The companion module of common functions: information store, text to the command line, document
// lock, prompts, extended data, layers. The tree store stands in quill_data.h.
#pragma once

#include <cstdint>
#include <string>

#include "platform/acad_database.h"
#include "platform/acad_geometry.h"
#include "platform/acad_result.h"
#include "platform/quill_data.h"

// --- information store: persistent texts by section and name, neither with case ---
constexpr int kInformationLimit = 1024;  // characters of the buffer, terminator included

// Gives the value, or the default when there is none. Above 0 when the buffer holds either; 0 when
// the store can't be read. Longer texts are cut to the buffer. mode is always 1.
int GetInformation(const wchar_t* section, const wchar_t* name, const wchar_t* fallback,
                   wchar_t* buffer, int mode);
// Above 0 when the value was written.
int WriteInformation(const wchar_t* section, const wchar_t* name, const wchar_t* text, int mode);

// --- command line and document ---
// Hands text to the command line as if typed. The length may count a terminator.
int SendMsgToAcad(const wchar_t* text, int length);
// Around changes to a drawing that start from a window; called in pairs.
void lockDoc();
void unlockDoc();

// Asks for a 2-D point with the keywords armed by acedInitGet. RTNORM with the point; RTKWORD with
// the keyword in a buffer of kAcadTextLimit characters; RTNONE on Enter; RTCAN.
int GetPoint(const AcGePoint2d* base, const wchar_t* prompt, int flags, AcGePoint2d& point,
             wchar_t* keyword);

// Asks once for an entity that passes the filter (as for acedSSGet). RTNORM with its name and the
// point where it was picked, (0, 0, 0) if it was named otherwise; RTCAN; RTERROR on Enter and when
// nothing was hit, which the variable ERRNO tells apart: 52 and 7.
int Xentsl(const wchar_t* prompt, const resbuf* filter, ads_name entity, ads_point point);

// --- geometry ---
// The point at that distance in that direction, in radians; z stays.
AcGePoint3d arx_polar(const AcGePoint3d& from, double angle, double distance);

// --- entities ---
// Puts the chain onto the entity as the application's extended data; the chain stays the caller's.
int AddXdata(const ads_name entity, const wchar_t* application, const resbuf* chain);
int EraseObject(AcDbObjectId id);

// --- colours ---
constexpr int kHostColours = 256;
// Red, green and blue of each colour index, one byte each: the colours of index n stand from 3 n
// on.
extern const std::uint8_t* const lpszRGBData;

// --- layers by key ---
struct LayerInfo {
  std::wstring name;
  int colour = 7;
};
// Looks the key pair up without touching the drawing. RTNORM, or RTERROR for an unknown pair.
int GetDQLayerName(const wchar_t* group, const wchar_t* kind, LayerInfo& layer);
// Makes the pair's layer when it is missing, and makes it current.
int SetToCurrentLayer(const wchar_t* group, const wchar_t* kind, const wchar_t* linetype,
                      const wchar_t* colour);
