// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"
#include "appkit/Font.hpp"
#include "viewkit/Font.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/Visual.hpp"

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace viewkit {

// The controls that a back end makes real. Each carries the value that it shows and the functions
// that the user's action calls, on the main thread; the value shown changes only when the view that
// owns it says so.

// A push button with a title, a symbol, or both.
//
//     if (const auto* button = std::get_if<ButtonControl>(&control)) button->action();
struct ButtonControl {
  std::string title;
  std::optional<SymbolName> symbol;
  std::function<void()> action;
};

// A button without a look of its own: its children are what is seen.
//
//     if (const auto* plain = std::get_if<PlainButtonControl>(&control)) plain->action();
struct PlainButtonControl {
  std::function<void()> action;
};

// A push button that opens a chooser of one existing file. The chooser opens at the path that
// `path` returns at that moment. `choose` is called with the absolute path that the user picks.
//
//     if (const auto path = askForFile(button.path())) button.choose(*path);
struct FileButtonControl {
  std::string title;
  std::function<std::string()> path;
  std::function<void(std::string)> choose;
};

// The small round button that opens a page's help.
//
//     if (const auto* help = std::get_if<HelpButtonControl>(&control)) help->action();
struct HelpButtonControl {
  std::function<void()> action;
};

// Shows a font; the user opens a chooser of family, style and size with a sample. The chooser opens
// on the font that `read` returns at that moment. `choose` is called with each font that the user
// settles on while the chooser is open: there is no apply step. The user who cancels the chooser
// after choosing brings back the font that was there when it opened, unless someone else has
// changed it since.
//
//     if (const auto font = askForFont(picker.read())) picker.choose(*font);
struct FontPickerControl {
  std::string title;
  appkit::Font font;
  std::function<appkit::Font()> read;
  std::function<void(appkit::Font)> choose;
};

// The tabs of a tab view.
//
//     if (tabs.selected + 1 < std::ssize(tabs.items)) tabs.select(tabs.selected + 1);
struct TabBarControl {
  struct Item {
    std::string title;
    SymbolName symbol;
    friend bool operator==(const Item&, const Item&) = default;
  };
  std::vector<Item> items;
  int selected = 0;
  std::function<void(int)> select;
};

// An on/off switch.
//
//     toggle.set(!toggle.isOn);
struct ToggleControl {
  enum class Size { regular, small };

  bool isOn = false;
  Size size = Size::regular;
  std::function<void(bool)> set;
};

// Shows a colour; the user opens a chooser with a field for hexadecimal text and, where the well
// asks for it, opacity. `choose` is called with each colour that the user settles on while the
// chooser is open. `checkpoint` is called when the chooser opens, and the function that it returns
// when the user cancels the chooser after choosing: it brings back what was stored before, unless
// someone else has changed it since.
//
//     const std::function<void()> restore = well.checkpoint();  // the chooser opens
//     well.choose({.red = 1, .green = 0.6, .blue = 0});
//     restore();  // the user cancels the chooser
struct ColorWellControl {
  appkit::RGBA color;
  bool supportsOpacity = false;
  std::function<void(appkit::RGBA)> choose;
  std::function<std::function<void()>()> checkpoint;
};

// An entry of a menu, and what choosing it does.
//
//     const MenuItem udp{.title = "UDP", .action = [source] { source.set(2); }};
//     PopUpMenu("Source", [udp] { return std::vector{udp}; })
struct MenuItem {
  std::string title;
  std::function<void()> action;
  // In place of the platform's menu font.
  std::optional<Font> font = std::nullopt;
  // The menu opens at this item. Where no item is marked, it opens at the one that has the title,
  // or the value, of its button.
  bool isCurrent = false;
  // An item that cannot be picked is shown all the same.
  bool isEnabled = true;
};

// A button that opens a menu. The items are asked for each time the menu opens.
//
//     for (const MenuItem& item : menu.items()) popUp(item.title, item.action);
struct MenuControl {
  enum class Kind {
    // The platform's pop-up button. It shows the title, which may be empty, and opens where the
    // current item lies under it.
    popUpButton,
    // A menu behind the node's children, which are what is seen.
    label,
  };

  std::string title;
  std::function<std::vector<MenuItem>()> items;
  Kind kind = Kind::popUpButton;
};

// Text that the user types. A back end calls `change` at every keystroke, `commit` when the user
// presses Return, and `endEditing` when the field loses the keyboard. The toolkit itself commits a
// changed text when the field disappears.
//
//     field.change("80, 443");  // the user types
//     field.commit();           // the user presses Return
struct TextFieldControl {
  std::string text;
  std::string placeholder;
  // The field grows to this many lines, then scrolls; Return commits all the same.
  int lineLimit = 1;
  // Why the text was refused, in the user's language; empty while nothing is wrong with it.
  std::string problem;
  std::function<void(std::string)> change;
  std::function<void()> commit;
  // Commits the text if it changed since it was last committed.
  std::function<void()> endEditing;
  // Brings the stored text back in place of a text that was not committed, or that was refused.
  // Returns whether there was such a text.
  std::function<bool()> revert;
};

// Text that the user can select and copy, but not change.
//
//     if (const auto* shown = std::get_if<SelectableTextControl>(&control)) copy(shown->text.text);
struct SelectableTextControl {
  TextVisual text;
};

// What makes a scroll view a list of which one item is selected. The list is one stop of the
// keyboard; the items are the nodes below that have a selection.
//
//     const ListItems items{.count = 3, .selected = 0, .select = selectRow};
//     ScrollView({.list = items}, rows)
struct ListItems {
  int count = 0;
  // -1 for none.
  int selected = -1;
  // Called with the item that an arrow key, Home or End selects. Empty where the views themselves
  // hear the arrow keys.
  std::function<void(int)> select = {};

  bool isLike(const ListItems& other) const {
    return count == other.count && selected == other.selected;
  }
};

// A view onto content that is larger: the one child of the node, placed at minus the offset.
// `scroll` is called with the offset that the user asks for; the node itself keeps it within
// bounds. The root of a window that is smaller than its content is one as well.
//
//     if (scroll.scroll) scroll.scroll(scroll.offset + Point{.x = 0, .y = 40});
struct ScrollControl {
  Size contentSize;
  Point offset;
  bool showsIndicators = true;
  std::function<void(Point)> scroll;
  std::optional<ListItems> list = std::nullopt;
};

// A surface of its own above the window, beside the node that is its parent in the tree. `dismiss`
// is called when the user closes it: a click elsewhere, Escape.
//
//     if (!isInside(click)) popover.dismiss();
struct PopoverControl {
  std::function<void()> dismiss;
  // A click in the parent is not a click elsewhere.
  bool staysForParent = false;
};

using Control =
    std::variant<ButtonControl, PlainButtonControl, FileButtonControl, HelpButtonControl,
                 FontPickerControl, TabBarControl, PopoverControl, ToggleControl, ColorWellControl,
                 MenuControl, TextFieldControl, SelectableTextControl, ScrollControl>;

// Whether the control can have the keyboard.
bool takesKeyboard(const Control& control);

// Whether a back end would show both alike; functions are not compared.
bool looksLike(const Control& a, const Control& b);

}  // namespace viewkit
