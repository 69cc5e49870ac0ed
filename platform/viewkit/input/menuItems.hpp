// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"

#include <functional>
#include <memory>
#include <vector>

namespace viewkit {

// The items of a menu whose view is on the screen while `shown` is true. Their actions do nothing
// at any other time; without the view there are no items.
std::vector<MenuItem> itemsWhile(const std::shared_ptr<const bool>& shown,
                                 const std::function<std::vector<MenuItem>()>& items);

}  // namespace viewkit
