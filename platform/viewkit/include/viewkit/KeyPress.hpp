// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"
#include "viewkit/View.hpp"

#include <functional>

namespace viewkit {

// The key presses that a handler hears of: all in the window, or those made while a control inside
// of the view has the keyboard.
//
//     onKeyPress(list, KeyScope::focusInside, [remove](const appkit::Event& press) {
//       return press.characters == "\x7F" && remove();
//     })
enum class KeyScope { window, focusInside };

// Calls the function for key presses while the view is on the screen, before the window and the
// focused control do anything with the key. The function returns whether it took the key, which
// then does nothing else. Handlers of inner views come first.
//
//     onKeyPress(page, KeyScope::window, [find](const appkit::Event& press) {
//       const bool isShortcut =
//           press.keyCode == appkit::Event::kF && press.modifiers == appkit::Event::control;
//       if (isShortcut) find();
//       return isShortcut;
//     });
View onKeyPress(const View& content, KeyScope scope,
                std::function<bool(const appkit::Event&)> handle);

}  // namespace viewkit
