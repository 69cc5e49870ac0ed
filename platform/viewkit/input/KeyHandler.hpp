// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/KeyPress.hpp"

#include <functional>
#include <vector>

namespace viewkit {

class Node;

// The part of a node that hears of key presses.
class KeyHandler {
public:
  using Handle = std::function<bool(const appkit::Event&)>;

  explicit KeyHandler(const Node& node) : node(node) {}
  KeyHandler(const KeyHandler&) = delete;
  KeyHandler& operator=(const KeyHandler&) = delete;

  const Node& node;
  KeyScope scope = KeyScope::window;
  Handle handle;

protected:
  ~KeyHandler() = default;
};

// What is to be called for a key press while `focus`, which may be null, has the keyboard: the
// handlers of inner nodes first. They are copies, because a handler may end nodes.
std::vector<KeyHandler::Handle> keyHandlersFor(const Node* focus,
                                               std::vector<KeyHandler*> handlers);

}  // namespace viewkit
