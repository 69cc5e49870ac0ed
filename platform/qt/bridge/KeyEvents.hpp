// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"

#include <QKeyEvent>

namespace qt {

// The appkit event of a key press.
appkit::Event eventFrom(const QKeyEvent& press);

// The key press for an event that a monitor returned for `press`. A key that appkit has no code for
// stays the key of `press`.
QKeyEvent pressFrom(const appkit::Event& event, const QKeyEvent& press);

}  // namespace qt
