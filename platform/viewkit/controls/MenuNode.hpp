// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/View.hpp"

namespace viewkit {

// A control that opens a menu. An item that is picked after the control has disappeared does
// nothing.
View makeMenu(const char* name, MenuControl control, Accessibility accessibility,
              const View& content = {});

}  // namespace viewkit
