// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/ViewHost.hpp"

#include <optional>

namespace viewkit {

// The result of a key press. `closesWindow` asks the back end to close the window.
//
//     if (routeKey(host, press, focused) == KeyOutcome::closesWindow) close();
enum class KeyOutcome { passedOn, handled, closesWindow };

// Decides what a key press does in a window, the same in every back end. A back end calls it after
// the application's monitors and before the control that has the focus, which gets the key if it is
// passed on.
//
//     Escape                   closes the topmost popover; else restores the stored text of the
//                              focused field, if it was not committed or was refused; else closes
//                              the window
//     F1                       presses the first help button
//     Ctrl+Tab, Ctrl+PageDown  selects the next tab of the first tab view
//     Ctrl+Shift+Tab, Ctrl+PageUp  selects the previous one
//     Ctrl+W                   closes the window
//
// The views' own handlers (see `onKeyPress`) come before these keys.
//
// `focused` is the node that has the focus, 0 for none. A field inside of the popover is restored
// before the popover closes. A pending update of the views is run first. Main thread only.
KeyOutcome routeKey(ViewHost& host, const appkit::Event& press, NodeId focused);

// The item that the key selects in the focused list: the next or the previous one, the first or the
// last. Nothing for another key, and in a list that does not select by itself.
std::optional<int> itemSelectedBy(const ListItems& list, const appkit::Event& press);

// Whether the key opens the focused menu: Space, Return, Alt+Down and F4 do, a plain arrow key does
// not.
bool opensMenu(const appkit::Event& press);

// Whether the key opens the context menu of the view around the focused control: the Menu key and
// Shift+F10 do.
bool opensContextMenu(const appkit::Event& press);

// Whether a back end hands the key to the closed menu that has the keyboard before any monitor sees
// it: Alt+Down. Monitors may give the arrow keys, with whatever modifiers, a meaning of their own.
bool isOfMenuAlone(const appkit::Event& press);

}  // namespace viewkit
