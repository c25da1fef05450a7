// Prompts for what entities and settings share: colours, layers, linetypes, lineweights. Each says
// what is wrong with an answer.
#pragma once

#include <optional>

#include "embedded/drafting/commands/ask.h"

namespace drafting {

// 0 to 256.
std::optional<int> askColour(Session& session, std::string_view chinese, std::string_view english);

// A record of the table by its name; 0 if there is none or the prompt wasn't answered.
Handle askRecord(Session& session, Table table, std::string_view chinese, std::string_view english);

// As Entity::linetype has it.
std::optional<Handle> askLinetype(Session& session, std::string_view chinese,
                                  std::string_view english);
// Of a name; nothing if there is none.
std::optional<Handle> linetypeOf(const Database& database, std::string_view name);

// As Entity::lineweight has it.
std::optional<std::uint8_t> askLineweight(Session& session, std::string_view chinese,
                                          std::string_view english);
// "0.25", "ByLayer", "Default"; nothing for what is no lineweight.
std::optional<std::uint8_t> parseLineweight(std::string_view text);
std::string lineweightName(std::uint8_t index);

// "ByLayer" and the like, or the record's name.
std::string linetypeName(const Database& database, Handle linetype);

// Whether a record may be called so; asks nobody.
bool isLegalName(std::string_view name);

// LINETYPE; the other commands on properties bring it along.
void addLinetypeCommand(CommandTable& table);

}  // namespace drafting
