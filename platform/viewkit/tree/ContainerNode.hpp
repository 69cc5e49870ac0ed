// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Node.hpp"
#include "viewkit/Stacks.hpp"

#include <memory>
#include <vector>

namespace viewkit {

// The node of a view with any number of children. A child's node belongs to the child's key.
class ContainerNode : public Node {
public:
  void visitChildren(const Visitor& visit) override {
    for (const Child& child : children_) visit(*child.node);
  }

protected:
  void reconcileChildren(const std::vector<Children::Child>& next);
  // The nodes of the children that are not empty.
  const std::vector<Node*>& children() const { return nodes_; }

private:
  struct Child {
    ChildKey key;
    std::unique_ptr<Node> node;
  };

  bool haveSameKeys(const std::vector<Children::Child>& next) const;
  void replaceChildren(const std::vector<Children::Child>& next, const InheritedPtr& inherited);

  std::vector<Child> children_;
  std::vector<Node*> nodes_;
};

}  // namespace viewkit
