// SPDX-License-Identifier: MIT
#include "input/menuItems.hpp"

#include <utility>

namespace viewkit {

std::vector<MenuItem> itemsWhile(const std::shared_ptr<const bool>& shown,
                                 const std::function<std::vector<MenuItem>()>& items) {
  if (!*shown || !items) return {};
  std::vector<MenuItem> made = items();
  for (MenuItem& item : made) {
    item.action = [shown, action = std::move(item.action)] {
      if (*shown && action) action();
    };
  }
  return made;
}

}  // namespace viewkit
