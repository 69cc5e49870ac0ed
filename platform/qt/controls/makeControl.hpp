#pragma once

#include "viewkit/PresentationNode.hpp"

class QWidget;

namespace qt {

class ControlWidget;
class Mirror;

// The widget for a node that is a control. It belongs to `parent`, the widget that it is shown in.
ControlWidget* makeControl(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent);

}  // namespace qt
