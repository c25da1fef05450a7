// Objects that the database only carries through as DWG bits, and that a DXF file can hold all the
// same: their bodies are known well enough to be put into groups and back. One table lists the
// fields of each kind for both directions.
#pragma once

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dxf/dxf_tables.h"
#include "embedded/drafting/dxf/group_section.h"
#include "embedded/drafting/dxf/group_sink.h"

namespace drafting {

// Whether a DXF file can hold this object.
bool isKnownRaw(const Database& database, const RawObject& object);

// Writes the body behind the common data. References to objects for which `isThere` says no become
// null, or are left out of a list.
void writeRawBody(const Database& database, const RawObject& object, GroupSink& sink,
                  const std::function<bool(Handle)>& isThere);

// Number of a class of objects in the drawing's list, where it is put if it is missing.
std::uint16_t classNumber(Database& database, const char* cppName, const char* dxfName);

// Makes body, type and references of a raw object of that DXF name from its groups. False if the
// name is none of the known kinds.
bool readRawBody(Database& database, std::string_view dxfName, GroupSection groups,
                 DxfTables& tables, RawObject& object);

}  // namespace drafting
