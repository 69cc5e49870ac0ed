#pragma once

#include "appkit/Event.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/ViewHost.hpp"

namespace viewkit {

// What became of a key press. `closesWindow` asks the back end to close the window.
enum class KeyOutcome { passedOn, handled, closesWindow };

// Decides what a key does in a window, the same in every back end. A back end asks after the
// application's monitors and before the control that has the keyboard, which gets what is passed
// on.
//
//     Escape                          the topmost popover closes; else a text that was not
//     committed, or
//                                     was refused, is replaced by the stored one; else the window
//                                     closes
//     F1                              the first help button is pressed
//     Ctrl+Tab, Ctrl+Page Down        the next tab of the first tab view, with Shift or Page Up the
//     last Ctrl+W                          the window closes
//
// `focused` is the node that has the keyboard, 0 for none. A text field inside of the popover comes
// before the popover. Views that wait to be updated are updated first. Main thread.
KeyOutcome routeKey(ViewHost& host, const appkit::Event& press, NodeId focused);

// Whether the key opens a closed menu that has the keyboard: Space, Return, Alt+Down and F4. A
// plain arrow key does not.
bool opensMenu(const appkit::Event& press);

// Whether a back end hands the key to the closed menu that has the keyboard before any monitor sees
// it: Alt+Down. Monitors may give the arrow keys, with whatever modifiers, a meaning of their own.
bool isOfMenuAlone(const appkit::Event& press);

}  // namespace viewkit
