// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"
#include "viewkit/PresentationNode.hpp"

namespace qt {

// The innermost node at the point that has a tooltip; null when there is none.
const viewkit::PresentationNode* tooltipAt(const viewkit::PresentationNode& node,
                                           viewkit::Point point);

}  // namespace qt
