#pragma once

#include "tree/Node.hpp"

#include <memory>
#include <vector>

namespace viewkit {

// The node of a scroll view. What it shows stands in a presentation of its own, which scrolling
// moves.
class ScrollNode final : public Node {
public:
  void visitChildren(const Visitor& visit) override { visit(*content_); }
  ScrollNode* asScrollNode() override { return this; }

  // The part of the content in sight, in the content's coordinates.
  Rect visibleRect() const { return {offset_, size()}; }
  const Node& content() const { return *content_; }
  void scrollTo(Point offset);
  // Moves content and offset by as much, so that what is in sight stays where it is.
  void shift(double distance) { scrollTo({offset_.x, offset_.y + distance}); }

  // Those that build only what is in sight are placed again whenever that changes.
  void addLazy(Node& lazy) { lazies_.push_back(&lazy); }
  void removeLazy(Node& lazy) { std::erase(lazies_, &lazy); }

  // Scrolls every scroll view around the node as little as it takes to bring the part of the node
  // into sight. Whether anything moved.
  static bool reveal(Node& node, Rect part);

protected:
  void apply(const ViewValue* before) override;
  Measurement measure(const ProposedSize& proposal) override;
  void placeChildren() override;

private:
  void showOffset();
  Point clamped(Point offset) const;
  bool revealInContent(const Rect& rect);

  // Outlives the content, whose nodes take themselves off the list.
  std::vector<Node*> lazies_;
  std::unique_ptr<Node> content_;
  Size contentSize_;
  Point offset_;
};

}  // namespace viewkit
