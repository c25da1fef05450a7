#include "embedded/drafting/commands/command.h"

#include "embedded/base/text.h"

namespace drafting {

bool CommandTable::add(Command command) {
  command.name = base::capitals(command.name);
  const auto [from, to] = commands_.equal_range(command.name);
  for (auto it = from; it != to; ++it) {
    if (it->second.group == command.group) return false;
  }
  const std::string name = command.name;
  commands_.emplace(name, std::move(command));
  return true;
}

bool CommandTable::removeGroup(std::string_view group) {
  return std::erase_if(commands_,
                       [group](const auto& entry) { return entry.second.group == group; }) != 0;
}

bool CommandTable::hasGroup(std::string_view group) const {
  for (const auto& [name, command] : commands_) {
    if (command.group == group) return true;
  }
  return false;
}

const Command* CommandTable::find(std::string_view name) const {
  std::string key = base::capitals(name);
  if (const auto alias = aliases_.find(key); alias != aliases_.end()) key = alias->second;
  const auto [from, to] = commands_.equal_range(key);
  return from == to ? nullptr : &std::prev(to)->second;
}

std::vector<std::string> CommandTable::names() const {
  std::vector<std::string> names;
  for (const auto& [name, command] : commands_) {
    if (names.empty() || names.back() != name) names.push_back(name);
  }
  return names;
}

void addBuiltinCommands(CommandTable& table) {
  addDrawCommands(table);
  addInsertCommands(table);
  addTextCommands(table);
  addEditCommands(table);
  addTransformCommands(table);
  addViewCommands(table);
  addAttributeCommands(table);
  addExplodeCommand(table);
  addListCommands(table);
  addModelCommand(table);
  addPlotCommand(table);
  addPropertyCommands(table);
  addStretchCommand(table);
  addTrimCommands(table);
  addUndoCommands(table);
  addLayerCommands(table);
  addSettingCommands(table);
  addFileCommands(table);
  addWblockCommand(table);
}

}  // namespace drafting
