// The desktop's menus as a table: texts, and what each entry types. The tool bar's buttons are
// entries too.
#pragma once

#include <span>
#include <string_view>

namespace desktop {

struct MenuEntry {
  int id = 0;  // 0: a separator
  std::string_view chinese = {}, english = {};
  std::string_view macro = {};  // empty: the window acts itself
  std::string_view keys = {};   // as shown beside the text
};

struct Menu {
  std::string_view chinese, english;
  std::span<const MenuEntry> entries;
};

std::span<const Menu> menus();
const MenuEntry* findEntry(int id);  // null if no menu has it

// Where the recent files stand: below this entry of the first menu.
inline constexpr int kEntriesBeforeRecent = 7;

}  // namespace desktop
