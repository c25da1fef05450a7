// How an entry of an owner-drawn menu is measured and drawn: an icon cell at the left, a raised
// frame around the selected entry's icon, a bar over its text, etched text when it is disabled.
// Texts are measured by the caller in the menu's font; the strokes are drawn in their order.
#pragma once

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "controls/menu_items.h"
#include "platform/framework_shapes.h"

using TextMeasure = std::function<SIZE(const std::wstring&)>;

enum class MenuColour {
  Current,  // as the device context has it
  Text,
  SelectedText,
  Menu,
  Highlight,
  Light,
  Shadow,
  Gray
};

// The system's text flags that entries use.
constexpr unsigned kMenuCentred = 37;     // one line, centred both ways
constexpr unsigned kMenuLabel = 4;        // in front of a tab
constexpr unsigned kMenuAccelerator = 6;  // behind it, at the right
constexpr unsigned kMenuWhole = 68;       // without a tab

struct MenuFill {
  RECT rect;
  MenuColour colour;
};
struct MenuLine {
  POINT from;
  POINT to;
  MenuColour colour;
};
struct MenuFrame {
  RECT rect;
  MenuColour topLeft;
  MenuColour bottomRight;
};
struct MenuImage {
  POINT at;
  int index;
  bool check;     // of the check images
  bool disabled;  // drawn etched
};
struct MenuText {
  std::wstring text;
  RECT rect;
  unsigned flags;
  MenuColour colour;
};
using MenuStroke = std::variant<MenuFill, MenuLine, MenuFrame, MenuImage, MenuText>;

struct MenuItemState {
  bool selected = false;
  bool disabled = false;
  bool checked = false;
};

// Width and height; the measure is in the menu's font, and of one line for a first level sub-menu.
SIZE menuItemSize(const GfxMenuItem& item, const SIZE& image, const TextMeasure& measure);

// May set the item's image: the two view entries find theirs by their text when first drawn, and
// keep it.
std::vector<MenuStroke> menuItemStrokes(GfxMenuItem& item, const RECT& rect,
                                        const MenuItemState& state, const SIZE& image,
                                        const TextMeasure& measure);
