// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"

#include <algorithm>
#include <memory>

namespace viewkit {

namespace {

// The measurement of a frame of this size with the content aligned in it.
Measurement framed(const Measurement& content, Size size, Alignment alignment) {
  Measurement measurement{size};
  if (content.firstBaseline) {
    measurement.firstBaseline = aligned(content.size, size, alignment).y + *content.firstBaseline;
  }
  return measurement;
}

class FixedFrameValue final : public ModifierValue {
public:
  FixedFrameValue(View content, const FixedFrame& frame)
      : ModifierValue(std::move(content)), frame(frame) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Frame"; }

  const FixedFrame frame;
};

class FixedFrameNode final : public ModifierNode {
public:
  bool cachesMeasurements() const override { return true; }
  ProposedSize relevantPart(const ProposedSize& proposal) const override {
    return inside(proposal);
  }

protected:
  void apply(const ViewValue* before) override {
    ModifierNode::apply(before);
    if (!before) return;
    const FixedFrame& last = static_cast<const FixedFrameValue*>(before)->frame;
    if (last.width != frame().width || last.height != frame().height ||
        last.alignment != frame().alignment) {
      layoutChanged();
    }
  }

  Measurement measure(const ProposedSize& proposal) override {
    const Measurement content = this->content()->measured(inside(proposal));
    return framed(
        content,
        {frame().width.value_or(content.size.width), frame().height.value_or(content.size.height)},
        frame().alignment);
  }

  void placeChildren() override {
    const Size contentSize = content()->sizeThatFits(inside({size().width, size().height}));
    placeChild(*content(), aligned(contentSize, size(), frame().alignment), contentSize);
  }

private:
  const FixedFrame& frame() const { return valueAs<FixedFrameValue>().frame; }
  ProposedSize inside(const ProposedSize& offered) const {
    return {frame().width ? frame().width : offered.width,
            frame().height ? frame().height : offered.height};
  }
};

std::unique_ptr<Node> FixedFrameValue::makeNode() const {
  return std::make_unique<FixedFrameNode>();
}

class FlexibleFrameValue final : public ModifierValue {
public:
  FlexibleFrameValue(View content, const FlexibleFrame& frame)
      : ModifierValue(std::move(content)), frame(frame) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "FlexibleFrame"; }

  const FlexibleFrame frame;
};

using Limit = std::optional<double>;

double limited(double length, const Limit& least, const Limit& most) {
  return std::max(least.value_or(0), std::min(most.value_or(kUnlimited), length));
}

Limit offer(const Limit& offered, const Limit& least, const Limit& most) {
  return offered ? Limit(limited(*offered, least, most)) : Limit();
}

double taken(const Limit& offered, double content, const Limit& least, const Limit& most) {
  if (!least && !most) return content;
  if (!offered) return limited(content, least, most);
  // Where a limit is left out, the content's own length is the limit.
  const double low = least.value_or(most ? std::min(content, *most) : content);
  const double high = std::max(low, most.value_or(content));
  return std::clamp(*offered, low, high);
}

class FlexibleFrameNode final : public ModifierNode {
public:
  bool cachesMeasurements() const override { return true; }

protected:
  void apply(const ViewValue* before) override {
    ModifierNode::apply(before);
    if (!before) return;
    const FlexibleFrame& last = static_cast<const FlexibleFrameValue*>(before)->frame;
    if (last.minWidth != frame().minWidth || last.maxWidth != frame().maxWidth ||
        last.minHeight != frame().minHeight || last.maxHeight != frame().maxHeight ||
        last.alignment != frame().alignment) {
      layoutChanged();
    }
  }

  Measurement measure(const ProposedSize& proposal) override {
    const Measurement content = this->content()->measured(inside(proposal));
    const Size size{
        taken(proposal.width, content.size.width, frame().minWidth, frame().maxWidth),
        taken(proposal.height, content.size.height, frame().minHeight, frame().maxHeight)};
    return framed(content, size, frame().alignment);
  }

  void placeChildren() override {
    const Size contentSize = content()->sizeThatFits(inside({size().width, size().height}));
    placeChild(*content(), aligned(contentSize, size(), frame().alignment), contentSize);
  }

private:
  const FlexibleFrame& frame() const { return valueAs<FlexibleFrameValue>().frame; }
  ProposedSize inside(const ProposedSize& offered) const {
    return {offer(offered.width, frame().minWidth, frame().maxWidth),
            offer(offered.height, frame().minHeight, frame().maxHeight)};
  }
};

std::unique_ptr<Node> FlexibleFrameValue::makeNode() const {
  return std::make_unique<FlexibleFrameNode>();
}

}  // namespace

View modified::byFrame(const View& content, const FixedFrame& frame) {
  return modifiedView<FixedFrameValue>(content, frame);
}

View modified::byFlexibleFrame(const View& content, const FlexibleFrame& frame) {
  return modifiedView<FlexibleFrameValue>(content, frame);
}

}  // namespace viewkit
