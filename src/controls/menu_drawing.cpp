#include "controls/menu_drawing.h"

#include <algorithm>

namespace {

using Strokes = std::vector<MenuStroke>;

constexpr int kLargeIconsImage = 0;
constexpr int kSmallIconsImage = 1;

SIZE size(int cx, int cy) {
  SIZE result;
  result.cx = cx;
  result.cy = cy;
  return result;
}

Strokes separator(const RECT& rect) {
  const auto line = [&rect](int below, MenuColour colour) {
    const auto y = rect.top + below;
    return MenuLine{{rect.left + 2, y}, {rect.right - 2, y}, colour};
  };
  return {line(2, MenuColour::Shadow), line(3, MenuColour::Light)};
}

// Selected, its text moves a little and a sunken frame stands around the whole entry.
Strokes subMenu(const GfxMenuItem& item, const RECT& rect, bool sunken) {
  RECT text = rect;
  if (sunken) {
    text.top += 1;
    text.left += 2;
  }
  Strokes strokes{MenuFill{text, MenuColour::Menu},
                  MenuText{item.text, text, kMenuCentred, MenuColour::Current}};
  if (sunken) strokes.push_back(MenuFrame{rect, MenuColour::Shadow, MenuColour::Light});
  return strokes;
}

// These words have no letters with two cases; with a tab behind them they are others.
void findViewImage(GfxMenuItem& item) {
  if (item.image != kNoMenuImage) return;
  const std::wstring text = item.text;
  if (text == L"大图标") item.image = kLargeIconsImage;
  if (text == L"小图标") item.image = kSmallIconsImage;
}

// One command's entry while its strokes are collected.
class CommandEntry {
 public:
  CommandEntry(GfxMenuItem& item, const RECT& rect, const MenuItemState& state)
      : item_(item), state_(state), cell_(rect), text_(rect), whole_(rect) {
    cell_.right = cell_.left + (rect.bottom - rect.top);
    // The entry's left edge counts twice: it is meant.
    text_.left += cell_.right + 1;
  }

  Strokes strokes(const SIZE& image, const TextMeasure& measure) {
    addBackground();
    findViewImage(item_);
    addImage(image);
    addText(measure(item_.text));
    return std::move(strokes_);
  }

 private:
  bool raised() const { return state_.selected && !state_.disabled; }

  // Only beside the icon cell where there is an image already.
  void addBackground() {
    const bool beside = item_.image >= 0 || state_.checked;
    strokes_.push_back(MenuFill{beside ? text_ : whole_,
                                state_.selected ? MenuColour::Highlight : MenuColour::Menu});
  }

  void addImage(const SIZE& image) {
    POINT at;
    at.x = cell_.left + (cell_.right - cell_.left - image.cx) / 2;
    at.y = cell_.top + (cell_.bottom - cell_.top - image.cy) / 2;
    if (item_.image >= 0) {
      const MenuColour light = raised() ? MenuColour::Light : MenuColour::Menu;
      const MenuColour shadow = raised() ? MenuColour::Shadow : MenuColour::Menu;
      strokes_.push_back(MenuFrame{cell_, light, shadow});
      strokes_.push_back(MenuImage{at, item_.image, false, state_.disabled});
    } else if (state_.checked) {
      at.y -= 2;
      strokes_.push_back(MenuImage{at, 0, true, false});
    }
  }

  void addText(const SIZE& text) {
    text_.top += (text_.bottom - text_.top - text.cy) / 2;
    text_.left += 2;
    text_.right -= 15;
    if (!state_.disabled) {
      addRuns(text_, state_.selected ? MenuColour::SelectedText : MenuColour::Text);
    } else if (state_.selected) {
      addRuns(text_, MenuColour::Menu);
    } else {
      RECT shrunk = text_;
      shrunk.left += 1;
      shrunk.top += 1;
      shrunk.right -= 1;
      shrunk.bottom -= 1;
      addRuns(shrunk, MenuColour::Light);
      addRuns(text_, MenuColour::Gray);
    }
  }

  void addRuns(const RECT& rect, MenuColour colour) {
    const std::wstring text = item_.text;
    const std::size_t tab = text.find(L'\t');
    if (tab == std::wstring::npos) {
      strokes_.push_back(MenuText{text, rect, kMenuWhole, colour});
      return;
    }
    strokes_.push_back(MenuText{text.substr(0, tab), rect, kMenuLabel, colour});
    strokes_.push_back(MenuText{text.substr(tab + 1), rect, kMenuAccelerator, colour});
  }

  GfxMenuItem& item_;
  MenuItemState state_;
  RECT cell_;
  RECT text_;
  RECT whole_;
  Strokes strokes_;
};

}  // namespace

SIZE menuItemSize(const GfxMenuItem& item, const SIZE& image, const TextMeasure& measure) {
  if (item.command == kMenuSeparator) return size(10, 6);
  const int height = static_cast<int>(image.cy) + 5;
  if (item.text[0] == 0) return size(100, height);
  const SIZE text = measure(item.text);
  if (item.command == kMenuSubMenu) return text;
  const int high = std::max(height, static_cast<int>(text.cy));
  return size(static_cast<int>(text.cx) + 17 + std::max(high, static_cast<int>(image.cx)), high);
}

std::vector<MenuStroke> menuItemStrokes(GfxMenuItem& item, const RECT& rect,
                                        const MenuItemState& state, const SIZE& image,
                                        const TextMeasure& measure) {
  if (item.command == kMenuSeparator) return separator(rect);
  if (item.command == kMenuSubMenu) return subMenu(item, rect, state.selected && !state.disabled);
  return CommandEntry(item, rect, state).strokes(image, measure);
}
