// SPDX-License-Identifier: MIT
#include "viewkit/Environment.hpp"

#include "foundation/UserDefaults.hpp"
#include "tree/CompositeNode.hpp"

namespace viewkit {

Environment Environment::current() {
  if (const CompositeNode* node = CompositeNode::running()) return node->environment();
  return {.defaultStore = foundation::UserDefaults::standardUserDefaults()};
}

}  // namespace viewkit
