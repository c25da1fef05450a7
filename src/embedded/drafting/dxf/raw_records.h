// XRECORDs between their DWG body and DXF groups. Body: BL number of bytes, then for each group its
// code as RS and the value: RS length, RC code page and characters of a text; RD of a real, three
// of a point; RS or RL of an integer, RC of a flag; 8 bytes of a handle; RC length and bytes of
// binary data; last BS the cloning flag.
#pragma once

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dxf/group_section.h"
#include "embedded/drafting/dxf/group_sink.h"

namespace drafting {

inline constexpr std::uint16_t kXrecordType = 0x4F;

void writeXrecord(const RawObject& object, GroupSink& sink);
void readXrecord(const Database& database, GroupSection groups, RawObject& object);

}  // namespace drafting
