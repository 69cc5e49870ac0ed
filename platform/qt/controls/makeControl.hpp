// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

class QWidget;

namespace qt {

class ControlWidget;
class MirroredTree;

// Makes the widget for a node that is a control. `parent` owns it. A popover becomes a child of the
// window's canvas instead.
ControlWidget* makeControl(MirroredTree& tree, const viewkit::PresentationNode& node,
                           QWidget& parent);

}  // namespace qt
