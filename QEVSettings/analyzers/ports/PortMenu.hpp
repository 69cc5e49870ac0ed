// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <string>
#include <vector>

namespace QEVSettings {

// A borderless menu in a row of the ports table: the current choice, then an arrow.
viewkit::View portMenu(const std::string& choice, const std::string& help,
                       std::function<std::vector<viewkit::MenuItem>()> items);

}  // namespace QEVSettings
