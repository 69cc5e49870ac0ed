#pragma once

#include "QEVCommonTools/QEVHelpAnchor.hpp"
#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

namespace QEVCommonTools {

// The small round button that opens the host's help of its anchor, or else the text for it in a
// popover beside it.
struct QEVHelpButton {
  QEVHelpAnchor anchor;
  viewkit::State<bool> isOpen = false;

  viewkit::View body() const;
};

}  // namespace QEVCommonTools
