// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Node.hpp"
#include "tree/ScrollRegion.hpp"

#include <memory>
#include <vector>

namespace viewkit {

// The node of a scroll view. Its content has a presentation of its own, which scrolling moves.
class ScrollNode final : public Node, public ScrollRegion {
public:
  void visitChildren(const Visitor& visit) override { visit(*content_); }
  ScrollRegion* scrollRegion() override { return this; }

  const Node& content() const override { return *content_; }
  Rect visibleRect() const override { return {offset_, size()}; }
  void scrollTo(Point offset) override;
  bool reveal(const Rect& rect) override;
  void addDependent(Node& node) override { dependents_.push_back(&node); }
  void removeDependent(Node& node) override { std::erase(dependents_, &node); }

protected:
  void apply(const ViewValue* before) override;
  Measurement measure(const ProposedSize& proposal) override;
  void placeChildren() override;

private:
  void showOffset();

  // Declared before the content, whose nodes take themselves off the list when they are destroyed.
  std::vector<Node*> dependents_;
  std::unique_ptr<Node> content_;
  Size contentSize_;
  Point offset_;
};

}  // namespace viewkit
