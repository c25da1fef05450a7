// The table of commands. A command is a function that asks its prompts and changes the drawing; the
// command line opens and closes its undo step.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace drafting {

class Session;

struct Command {
  std::string name = {};  // capitals
  std::function<void(Session&)> run = {};
  bool recordsItself = false;  // its undo steps are its own affair (UNDO, OPEN)
  bool transparent = false;    // may run at another command's prompt, its name behind a "'"
  std::string group = {};      // of commands that a module added
};

class CommandTable {
 public:
  // False if the group has a command of that name already.
  bool add(Command command);
  void addAlias(std::string alias, std::string name) {
    aliases_[std::move(alias)] = std::move(name);
  }
  bool removeGroup(std::string_view group);  // false if there was none
  bool hasGroup(std::string_view group) const;
  // By name or alias, compared without case; of several groups' commands the newest. Null if there
  // is none; valid until the table changes.
  const Command* find(std::string_view name) const;
  std::vector<std::string> names() const;

 private:
  std::multimap<std::string, Command> commands_;
  std::map<std::string, std::string> aliases_;
};

void addBuiltinCommands(CommandTable& table);

// The builtin commands, by theme.
void addDrawCommands(CommandTable& table);
void addInsertCommands(CommandTable& table);
void addTextCommands(CommandTable& table);
void addEditCommands(CommandTable& table);
void addTransformCommands(CommandTable& table);
void addViewCommands(CommandTable& table);
void addAttributeCommands(CommandTable& table);
void addExplodeCommand(CommandTable& table);
void addListCommands(CommandTable& table);
void addModelCommand(CommandTable& table);
void addPlotCommand(CommandTable& table);
void addPropertyCommands(CommandTable& table);
void addStretchCommand(CommandTable& table);
void addTrimCommands(CommandTable& table);
void addUndoCommands(CommandTable& table);
void addLayerCommands(CommandTable& table);
void addSettingCommands(CommandTable& table);
void addFileCommands(CommandTable& table);
void addWblockCommand(CommandTable& table);

}  // namespace drafting
