// SPDX-License-Identifier: MIT
#include "viewkit/Environment.hpp"

#include "foundation/UserDefaults.hpp"
#include "tree/CompositeNode.hpp"

namespace viewkit {

std::shared_ptr<void> EnvironmentObjects::find(std::type_index type) const {
  const Entry* entry = newest_.get();
  while (entry && entry->type != type) entry = entry->earlier.get();
  return entry ? entry->object : nullptr;
}

bool operator==(const EnvironmentObjects& a, const EnvironmentObjects& b) {
  const auto* left = a.newest_.get();
  const auto* right = b.newest_.get();
  while (left != right) {
    if (!left || !right || left->type != right->type || left->object != right->object) return false;
    left = left->earlier.get();
    right = right->earlier.get();
  }
  return true;
}

Environment Environment::current() {
  if (const CompositeNode* node = CompositeNode::running()) return node->environment();
  return {.defaultStore = foundation::UserDefaults::standardUserDefaults()};
}

}  // namespace viewkit
