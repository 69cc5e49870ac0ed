#include "containers/ScrollNode.hpp"

#include "tree/ModifierNode.hpp"
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

class ScrollValue final : public ViewValue {
public:
  ScrollValue(const ScrollViewOptions& options, const View& content)
      : options(options), content(std::make_shared<const ScrollContentValue>(content)) {}

  std::unique_ptr<Node> makeNode() const override { return std::make_unique<ScrollNode>(); }
  std::string kind() const override { return "ScrollView"; }

  const ScrollViewOptions options;
  const View content;
};

}  // namespace

void ScrollNode::apply(const ViewValue* before) {
  present().setClipRadius(0);
  reconcile(content_, valueAs<ScrollValue>().content, inheritedByChildren());
  present().setAccessibility({.role = Role::scrollArea});
  if (!before || static_cast<const ScrollValue*>(before)->options.showsIndicators !=
                     valueAs<ScrollValue>().options.showsIndicators) {
    showOffset();
  }
}

Measurement ScrollNode::measure(const ProposedSize& proposal) {
  const Measurement content = content_->measured({proposal.width, std::nullopt});
  return {{content.size.width, proposal.height.value_or(content.size.height)}};
}

void ScrollNode::placeChildren() {
  contentSize_ = content_->sizeThatFits({size().width, std::nullopt});
  // Content that is smaller than the view is not scrolled.
  offset_ = clamped(offset_);
  placeChild(*content_, Point{} - offset_, contentSize_);
  // NOLINTNEXTLINE(modernize-loop-convert): placing rows may make lists within them
  for (std::size_t i = 0; i < dependents_.size(); ++i) dependents_[i]->placeAgain();
  showOffset();
}

void ScrollNode::showOffset() {
  present().setContent(Control(ScrollControl{
      .contentSize = contentSize_,
      .offset = offset_,
      .showsIndicators = valueAs<ScrollValue>().options.showsIndicators,
      .scroll = [this](Point offset) { scrollTo(offset); },
  }));
}

Point ScrollNode::clamped(Point offset) const {
  return {std::clamp(offset.x, 0.0, std::max(0.0, contentSize_.width - size().width)),
          std::clamp(offset.y, 0.0, std::max(0.0, contentSize_.height - size().height))};
}

void ScrollNode::scrollTo(Point offset) {
  if (offset == offset_) return;
  // `placeChildren` keeps it within bounds; the content may be about to grow.
  offset_ = offset;
  placementChanged();
}

bool ScrollNode::reveal(const Rect& rect) {
  const auto nearest = [](double offset, double length, double start, double end) {
    if (start < offset || end - start > length) return start;
    return end > offset + length ? end - length : offset;
  };
  const Point before = offset_;
  scrollTo(clamped({nearest(offset_.x, size().width, rect.origin.x, rect.maxX()),
                    nearest(offset_.y, size().height, rect.origin.y, rect.maxY())}));
  return offset_ != before;
}

View ScrollView(const ScrollViewOptions& options, const View& content) {
  return View(std::make_shared<const ScrollValue>(options, content));
}

}  // namespace viewkit
