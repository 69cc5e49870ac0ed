// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/QEVHelpAnchor.hpp"

#include <functional>

namespace QEVCommonTools {

// The host's own help, such as a chapter of its manual. Returns whether it was opened; otherwise
// the help button shows the text that comes with the module.
//
//     setHelpHandler([](QEVHelpAnchor anchor) { return openManual(chapterOf(anchor)); });
using HelpHandler = std::function<bool(QEVHelpAnchor anchor)>;

// For all help buttons of the process; an empty handler takes the last one away. Main thread.
void setHelpHandler(HelpHandler handler);

// Asks the handler; false without one.
bool openHostHelp(QEVHelpAnchor anchor);

}  // namespace QEVCommonTools
