// Selection sets, entity names, and the way from a name to an object id.
#pragma once

#include "platform/acad_database.h"
#include "platform/acad_result.h"

// Makes a set. Mode "X" takes the whole drawing, oldest entity first, through the filter: groups 0
// and 8, and behind a -3 link a 1001 link naming an extended-data application. Points are unused
// then. RTNORM; RTERROR when nothing was found, and the name is then {0, 0}.
int acedSSGet(const wchar_t* mode, const void* point1, const void* point2, const resbuf* filter,
              ads_name set);
int acedSSLength(const ads_name set, std::int32_t* length);
// The set's entity at a 0-based index. RTERROR outside the set.
int acedSSName(const ads_name set, std::int32_t index, ads_name entity);
int acedSSFree(const ads_name set);

// The newest entity of the current drawing that isn't erased. RTERROR in an empty drawing.
int acdbEntLast(ads_name entity);
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity);

// Makes an application name known for extended data. RTNORM also when it was known.
int acdbRegApp(const wchar_t* application);
