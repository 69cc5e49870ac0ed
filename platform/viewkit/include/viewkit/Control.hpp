#pragma once

#include "appkit/Font.hpp"
#include "viewkit/SymbolName.hpp"

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace viewkit {

// The controls that a back end makes real. Each carries the value that it shows and the functions that
// a person's action calls, on the main thread; the value shown changes only when the view that owns it
// says so.

// A push button with a title, a symbol, or both.
struct ButtonControl {
  std::string title;
  std::optional<SymbolName> symbol;
  std::function<void()> action;
};

// A button without a look of its own: its children are what is seen.
struct PlainButtonControl {
  std::function<void()> action;
};

// The small round button that opens a page's help.
struct HelpButtonControl {
  std::function<void()> action;
};

// Shows a font; a person opens a chooser of family, style and size with a sample. `choose` is called
// with each font that the person settles on while the chooser is open: there is no apply step.
struct FontPickerControl {
  std::string title;
  appkit::Font font;
  std::function<void(appkit::Font)> choose;
};

// The tabs of a tab view.
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

// A surface of its own above the window, beside the node that is its parent in the tree. `dismiss` is
// called when the person closes it: a click elsewhere, Escape.
struct PopoverControl {
  std::function<void()> dismiss;
};

using Control = std::variant<ButtonControl, PlainButtonControl, HelpButtonControl, FontPickerControl, TabBarControl,
                             PopoverControl>;

// Whether a back end would show both alike; functions are not compared.
bool looksLike(const Control& a, const Control& b);

}  // namespace viewkit
