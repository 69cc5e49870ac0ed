#pragma once

#include "appkit/Event.hpp"

#include <QKeyEvent>

namespace qt {

// The press as the application sees it, and back: an event that a monitor made of the press. Keys
// that appkit has no code for stay the key of the press.
appkit::Event eventFrom(const QKeyEvent& press);
QKeyEvent pressFrom(const appkit::Event& event, const QKeyEvent& press);

}  // namespace qt
