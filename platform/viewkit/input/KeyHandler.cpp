// SPDX-License-Identifier: MIT
#include "input/KeyHandler.hpp"

#include "tree/Node.hpp"

#include <algorithm>

namespace viewkit {

namespace {

bool isWithin(const Node* node, const Node& branch) {
  while (node && node != &branch) node = node->parent();
  return node != nullptr;
}

}  // namespace

std::vector<KeyHandler::Handle> keyHandlersFor(const Node* focus,
                                               std::vector<KeyHandler*> handlers) {
  std::ranges::stable_sort(handlers, std::ranges::greater{},
                           [](const KeyHandler* each) { return each->node.depth(); });
  std::vector<KeyHandler::Handle> called;
  for (const KeyHandler* each : handlers) {
    if (each->scope == KeyScope::window || isWithin(focus, each->node))
      called.push_back(each->handle);
  }
  return called;
}

}  // namespace viewkit
