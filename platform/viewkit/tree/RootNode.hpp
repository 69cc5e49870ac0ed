// SPDX-License-Identifier: MIT
#pragma once

#include "tree/ModifierNode.hpp"
#include "tree/ScrollOffset.hpp"
#include "tree/ScrollRegion.hpp"

namespace viewkit {

// The node around the root view. It always has a presentation, and is as large as the window. A
// root view that is larger than the window scrolls.
class RootValue final : public ModifierValue {
public:
  using ModifierValue::ModifierValue;
  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Window"; }
};

class RootNode final : public Node, public ScrollRegion {
public:
  void visitChildren(const Visitor& visit) override {
    if (root_) visit(*root_);
  }
  bool cachesMeasurements() const override { return false; }
  ScrollRegion* scrollRegion() override { return this; }

  // The root view may have no presentation, so the coordinates of the content are those of the
  // window.
  const Node& content() const override { return *this; }
  Rect visibleRect() const override { return {{}, size()}; }
  void scrollTo(Point offset) override {
    if (offset == offset_) return;
    offset_ = offset;
    placementChanged();
  }
  bool reveal(const Rect& rect) override {
    const Point before = offset_;
    scrollTo(
        clampedOffset(revealingOffset(offset_, rect.movedBy(offset_), size()), rootSize_, size()));
    return offset_ != before;
  }
  void addDependent(Node& node) override { dependents_.push_back(&node); }
  void removeDependent(Node& node) override { std::erase(dependents_, &node); }

protected:
  void apply(const ViewValue* /*before*/) override {
    present();
    reconcile(root_, valueAs<RootValue>().content, inheritedPtr());
  }
  Measurement measure(const ProposedSize& proposal) override {
    return root_ ? root_->measured(proposal) : Measurement{};
  }
  void placeChildren() override {
    rootSize_ = root_ ? root_->sizeThatFits({size().width, size().height}) : Size{};
    offset_ = clampedOffset(offset_, rootSize_, size());
    if (root_) placeChild(*root_, Point{} - offset_, rootSize_);
    // NOLINTNEXTLINE(modernize-loop-convert): placing rows may make lists within them
    for (std::size_t i = 0; i < dependents_.size(); ++i) dependents_[i]->placeAgain();
    const bool isTooLarge = rootSize_.width > size().width || rootSize_.height > size().height;
    present().setContent(isTooLarge ? Presented::Content(scrollControl()) : std::monostate());
  }

private:
  Control scrollControl() {
    return ScrollControl{.contentSize = rootSize_,
                         .offset = offset_,
                         .showsIndicators = true,
                         .scroll = [this](Point offset) { scrollTo(offset); }};
  }

  // Declared before the root view, whose nodes take themselves off the list.
  std::vector<Node*> dependents_;
  std::unique_ptr<Node> root_;
  Size rootSize_;
  Point offset_;
};

inline std::unique_ptr<Node> RootValue::makeNode() const { return std::make_unique<RootNode>(); }

}  // namespace viewkit
