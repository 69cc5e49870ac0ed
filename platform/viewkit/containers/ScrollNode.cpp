// SPDX-License-Identifier: MIT
#include "containers/ScrollNode.hpp"

#include "tree/ModifierNode.hpp"
#include "tree/ScrollOffset.hpp"
#include "viewkit/ScrollView.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace viewkit {

namespace {

class ScrollContentValue final : public ModifierValue {
public:
  using ModifierValue::ModifierValue;

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "ScrollContent"; }
};

class ScrollContentNode final : public ModifierNode {
protected:
  void apply(const ViewValue* before) override {
    present();
    ModifierNode::apply(before);
  }
};

std::unique_ptr<Node> ScrollContentValue::makeNode() const {
  return std::make_unique<ScrollContentNode>();
}

// The height of a scroll view.
enum class Height { proposed, ofContentUpToProposed };

class ScrollValue final : public ViewValue {
public:
  ScrollValue(Height height, ScrollViewOptions options, const View& content)
      : height(height),
        options(std::move(options)),
        content(std::make_shared<const ScrollContentValue>(content)) {}

  std::unique_ptr<Node> makeNode() const override { return std::make_unique<ScrollNode>(); }
  std::string kind() const override { return "ScrollView"; }

  const Height height;
  const ScrollViewOptions options;
  const View content;
};

bool isSizedByContent(const ScrollValue& value) {
  return value.height == Height::ofContentUpToProposed;
}

}  // namespace

void ScrollNode::apply(const ViewValue* before) {
  static_cast<void>(before);
  present().setClipRadius(0);
  reconcile(content_, valueAs<ScrollValue>().content, inheritedByChildren());
  showOffset();
}

Measurement ScrollNode::measure(const ProposedSize& proposal) {
  if (!isSizedByContent(valueAs<ScrollValue>())) {
    const Measurement content = content_->measured({proposal.width, std::nullopt});
    return {{content.size.width, proposal.height.value_or(content.size.height)}};
  }
  Measurement content = content_->measured(proposal);
  if (proposal.height) content.size.height = std::min(content.size.height, *proposal.height);
  return content;
}

void ScrollNode::placeChildren() {
  const bool isSized = isSizedByContent(valueAs<ScrollValue>());
  contentSize_ =
      content_->sizeThatFits({size().width, isSized ? std::optional(size().height) : std::nullopt});
  offset_ = clampedOffset(offset_, contentSize_, size());
  placeChild(*content_, Point{} - offset_, contentSize_);
  // NOLINTNEXTLINE(modernize-loop-convert): placing rows may make lists within them
  for (std::size_t i = 0; i < dependents_.size(); ++i) dependents_[i]->placeAgain();
  showOffset();
}

void ScrollNode::showOffset() {
  const auto& value = valueAs<ScrollValue>();
  present().setContent(Control(ScrollControl{
      .contentSize = contentSize_,
      .offset = offset_,
      .showsIndicators = value.options.showsIndicators,
      .scroll = [this](Point offset) { scrollTo(offset); },
      .list = value.options.list,
  }));
  // Content that is shown whole is not scrolled, so there is nothing to tell.
  const bool isWhole = isSizedByContent(value) && contentSize_.height <= size().height;
  present().setAccessibility({.role = value.options.list ? Role::list
                                      : isWhole          ? Role::none
                                                         : Role::scrollArea});
}

void ScrollNode::scrollTo(Point offset) {
  if (offset == offset_) return;
  // `placeChildren` keeps it within bounds; the content may be about to grow.
  offset_ = offset;
  placementChanged();
}

bool ScrollNode::reveal(const Rect& rect) {
  const Point before = offset_;
  scrollTo(clampedOffset(revealingOffset(offset_, rect, size()), contentSize_, size()));
  return offset_ != before;
}

View ScrollView(const ScrollViewOptions& options, const View& content) {
  return View(std::make_shared<const ScrollValue>(Height::proposed, options, content));
}

View scrollingWhereTooHigh(const View& content) {
  return View(std::make_shared<const ScrollValue>(Height::ofContentUpToProposed,
                                                  ScrollViewOptions{}, content));
}

}  // namespace viewkit
