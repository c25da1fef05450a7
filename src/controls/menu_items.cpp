#include "controls/menu_items.h"

#include <algorithm>
#include <iterator>

GfxMenuItem* MenuItems::AddMenuItem(const std::wstring& text, std::int32_t command) {
  auto item = std::make_unique<GfxMenuItem>();
  item->command = command;
  item->image = command >= 0 ? FindImageIndex(command) : command;
  const std::size_t length = std::min(text.size(), std::size(item->text) - 1);
  std::copy_n(text.begin(), length, item->text);
  items_.push_back(std::move(item));
  return items_.back().get();
}

std::int32_t MenuItems::FindImageIndex(std::int32_t command) const {
  for (const MenuImageId& id : imageIds) {
    if (id.command == command) return id.image;
  }
  return kNoMenuImage;
}
