// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/QEVHelpAnchor.hpp"
#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

namespace QEVCommonTools {

// A small round button that opens the host's help for its anchor or, without a help handler, shows
// a chapter of the help in a popover.
//
//     HStack({}, {Text("Fonts"), QEVHelpButton{.anchor = QEVHelpAnchor::settingsFonts}})
struct QEVHelpButton {
  QEVHelpAnchor anchor;
  viewkit::State<bool> isOpen = false;

  viewkit::View body() const;
};

}  // namespace QEVCommonTools
