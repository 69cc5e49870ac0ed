#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <string>
#include <vector>

namespace QEVSettings {

// A borderless pop-up menu in a row of the ports table: the text of the choice in effect, then an
// arrow.
viewkit::View portMenu(const std::string& choice, const std::string& help,
                       std::function<std::vector<viewkit::MenuItem>()> items);

}  // namespace QEVSettings
