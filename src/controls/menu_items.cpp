#include "controls/menu_items.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::size_t kItemBytes = 264;  // of an item where characters have 16 bits

#ifdef _WIN32
static_assert(sizeof(GfxMenuItem) == kItemBytes);
#endif

}  // namespace

GfxMenuItem* MenuItems::AddMenuItem(const std::wstring& text, std::int32_t command) {
  auto item = std::make_unique<GfxMenuItem>();
  item->command = command;
  item->image = command >= 0 ? FindImageIndex(command) : command;
  const std::size_t length = std::min(text.size(), std::size(item->text) - 1);
  std::copy_n(text.begin(), length, item->text);
  // Room for whole items, although the table only points to them: it is meant.
  items_.reserve((items_.size() + 1) * kItemBytes / sizeof(items_[0]));
  items_.push_back(std::move(item));
  return items_.back().get();
}

std::int32_t MenuItems::FindImageIndex(std::int32_t command) const {
  for (const MenuImageId& id : imageIds) {
    if (id.command == command) return id.image;
  }
  return kNoMenuImage;
}
