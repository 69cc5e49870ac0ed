// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <vector>

namespace viewkit {

// Gives the content a menu that opens at the pointer with the right mouse button or a long press,
// with the keys of `opensContextMenu` while a control in the content has the keyboard, and by the
// action of assistive technology that shows a menu. The innermost view with a menu opens its own.
//
//     contextMenu(row, [] { return std::vector<MenuItem>{{.title = "Copy", .action = copy}}; });
//
// The items are asked for each time the menu opens; without any no menu opens. A disabled view
// opens its menu too. Main thread.
View contextMenu(const View& content, std::function<std::vector<MenuItem>()> items);

// A context menu that was asked for, for back ends.
//
//     if (const std::optional<ContextMenu> menu = host.contextMenuAt(point))
//       for (const MenuItem& item : menu->items) popUp(item.title, item.action);
struct ContextMenu {
  // Their actions do nothing once the view is gone.
  std::vector<MenuItem> items;
  // Whether the view is still on the screen. If not, the back end closes the menu.
  std::function<bool()> isShown;
};

}  // namespace viewkit
