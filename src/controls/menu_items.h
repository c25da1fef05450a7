// The table of an owner-drawn menu's entries: what each stands for and which image it shows.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// Marks in place of a command.
constexpr std::int32_t kMenuDeepSubMenu = -2;  // below the first level
constexpr std::int32_t kMenuSeparator = -3;
constexpr std::int32_t kMenuSubMenu = -4;  // of the first level
constexpr std::int32_t kNoMenuImage = -1;

struct GfxMenuItem {
  std::int32_t image;    // index; for a marked entry the mark
  std::int32_t command;  // id or mark
  wchar_t text[128];     // with tab and accelerator; cut at 127 characters
};

struct MenuImageId {
  std::int32_t image;
  std::int32_t command;
};

class MenuItems {
 public:
  // The item lasts as long as the table.
  GfxMenuItem* AddMenuItem(const std::wstring& text, std::int32_t command);
  std::int32_t FindImageIndex(std::int32_t command) const;  // kNoMenuImage without an entry
  int count() const { return static_cast<int>(items_.size()); }
  std::size_t tableBytes() const { return items_.capacity() * sizeof(items_[0]); }

  std::vector<MenuImageId> imageIds;

 private:
  std::vector<std::unique_ptr<GfxMenuItem>> items_;
};
