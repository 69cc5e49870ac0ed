// SPDX-License-Identifier: MIT
#include "tree/ContainerNode.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <unordered_map>
#include <utility>

namespace viewkit {

namespace {

struct KeyHash {
  std::size_t operator()(const ChildKey& key) const {
    const std::size_t id = key.id ? std::hash<ViewId>()(*key.id) : 0;
    return id * 31 + static_cast<std::size_t>(key.position);
  }
};

}  // namespace

void ContainerNode::reconcileChildren(const std::vector<Children::Child>& next) {
  // A label, help or selection given to the container is told of it as a group.
  if (!inherited().forNearest.isEmpty()) {
    present().setAccessibility({.role = Role::group});
  } else if (presented()) {
    present().setAccessibility({});
  }
  const InheritedPtr inherited = inheritedByChildren();
  if (haveSameKeys(next)) {
    bool unchanged = true;
    for (std::size_t i = 0; i < next.size(); ++i) {
      const Node* before = children_[i].node.get();
      reconcile(children_[i].node, next[i].view, inherited);
      unchanged = unchanged && children_[i].node.get() == before;
    }
    if (unchanged) return;
  } else {
    replaceChildren(next, inherited);
    childrenChanged();
  }
  nodes_.clear();
  nodes_.reserve(children_.size());
  for (const Child& child : children_) nodes_.push_back(child.node.get());
}

bool ContainerNode::haveSameKeys(const std::vector<Children::Child>& next) const {
  return std::equal(children_.begin(), children_.end(), next.begin(), next.end(),
                    [](const Child& a, const Children::Child& b) { return a.key == b.key; });
}

void ContainerNode::replaceChildren(const std::vector<Children::Child>& next,
                                    const InheritedPtr& inherited) {
  // Children with the same key are matched by their order.
  std::unordered_multimap<ChildKey, std::size_t, KeyHash> places;
  std::vector<Child> before = std::exchange(children_, {});
  for (std::size_t i = before.size(); i-- > 0;) places.emplace(before[i].key, i);
  const auto take = [&](const ChildKey& key) -> std::unique_ptr<Node> {
    const auto [first, last] = places.equal_range(key);
    if (first == last) return nullptr;
    const auto earliest = std::min_element(
        first, last, [](const auto& a, const auto& b) { return a.second < b.second; });
    const std::size_t place = earliest->second;
    places.erase(earliest);
    return std::move(before[place].node);
  };
  children_.reserve(next.size());
  for (const Children::Child& child : next) {
    std::unique_ptr<Node> node = take(child.key);
    reconcile(node, child.view, inherited);
    children_.push_back({child.key, std::move(node)});
  }
  for (Child& child : before) {
    if (child.node) removeChild(std::move(child.node));
  }
}

}  // namespace viewkit
