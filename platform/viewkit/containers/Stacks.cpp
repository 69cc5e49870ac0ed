// SPDX-License-Identifier: MIT
#include "viewkit/Stacks.hpp"

#include "layout/StackLayout.hpp"
#include "tree/ContainerNode.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

class StackValue final : public ViewValue {
public:
  StackValue(StackLayout layout, Children children)
      : layout(layout), children(std::move(children)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override {
    return layout.axis == Axis::horizontal ? "HStack" : "VStack";
  }

  const StackLayout layout;
  const Children children;
};

class StackNode final : public ContainerNode {
public:
  std::optional<Axis> stackAxis() const override { return layout().axis; }

protected:
  bool hasSameIdentity(const ViewValue& next) const override {
    return static_cast<const StackValue&>(next).layout.axis == layout().axis;
  }

  void apply(const ViewValue* before) override {
    reconcileChildren(valueAs<StackValue>().children.all());
    if (!before) return;
    const StackLayout& last = static_cast<const StackValue*>(before)->layout;
    if (last.alignment != layout().alignment || last.spacing != layout().spacing) layoutChanged();
  }

  Measurement measure(const ProposedSize& proposal) override {
    return layout().layOut(children(), proposal);
  }

  void placeChildren() override {
    layout().layOut(children(), {size().width, size().height},
                    [this](std::size_t child, const Rect& frame) {
                      placeChild(*children()[child], frame.origin, frame.size);
                    });
  }

private:
  const StackLayout& layout() const { return valueAs<StackValue>().layout; }
};

std::unique_ptr<Node> StackValue::makeNode() const { return std::make_unique<StackNode>(); }

class ZStackValue final : public ViewValue {
public:
  ZStackValue(Alignment alignment, Children children)
      : alignment(alignment), children(std::move(children)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "ZStack"; }

  const Alignment alignment;
  const Children children;
};

class ZStackNode final : public ContainerNode {
protected:
  void apply(const ViewValue* before) override {
    const auto& value = valueAs<ZStackValue>();
    reconcileChildren(value.children.all());
    if (before && static_cast<const ZStackValue*>(before)->alignment != value.alignment)
      layoutChanged();
  }

  Measurement measure(const ProposedSize& proposal) override {
    Size size;
    for (Node* child : children()) {
      const Size childSize = child->sizeThatFits(proposal);
      size = {std::max(size.width, childSize.width), std::max(size.height, childSize.height)};
    }
    for (Node* child : children()) {
      const Measurement measurement = child->measured(proposal);
      if (!measurement.firstBaseline) continue;
      const Point origin = aligned(measurement.size, size, valueAs<ZStackValue>().alignment);
      return {size, origin.y + *measurement.firstBaseline};
    }
    return {size};
  }

  void placeChildren() override {
    for (Node* child : children()) {
      const Size childSize = child->sizeThatFits({size().width, size().height});
      placeChild(*child, aligned(childSize, size(), valueAs<ZStackValue>().alignment), childSize);
    }
  }
};

std::unique_ptr<Node> ZStackValue::makeNode() const { return std::make_unique<ZStackNode>(); }

class SpacerValue final : public ViewValue {
public:
  explicit SpacerValue(double minLength) : minLength(minLength) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Spacer"; }

  const double minLength;
};

class SpacerNode final : public Node {
public:
  bool cachesMeasurements() const override { return false; }
  bool takesLeftoverSpace() const override { return true; }

protected:
  void apply(const ViewValue* before) override {
    if (!before) {
      for (const Node* node = parent(); node && !axis_; node = node->parent())
        axis_ = node->stackAxis();
    } else if (static_cast<const SpacerValue*>(before)->minLength !=
               valueAs<SpacerValue>().minLength) {
      layoutChanged();
    }
  }

  Measurement measure(const ProposedSize& proposal) override {
    const double least = valueAs<SpacerValue>().minLength;
    const auto length = [&](Axis axis, std::optional<double> offered) {
      return axis_ && *axis_ != axis ? 0 : std::max(least, offered.value_or(0));
    };
    return {{length(Axis::horizontal, proposal.width), length(Axis::vertical, proposal.height)}};
  }

private:
  std::optional<Axis> axis_;
};

std::unique_ptr<Node> SpacerValue::makeNode() const { return std::make_unique<SpacerNode>(); }

}  // namespace

View HStack(const HStackOptions& options, Children children) {
  const StackLayout layout{.axis = Axis::horizontal,
                           .alignment = {.vertical = options.alignment},
                           .spacing = options.spacing};
  return View(std::make_shared<const StackValue>(layout, std::move(children)));
}

View VStack(const VStackOptions& options, Children children) {
  const StackLayout layout{.axis = Axis::vertical,
                           .alignment = {.horizontal = options.alignment},
                           .spacing = options.spacing};
  return View(std::make_shared<const StackValue>(layout, std::move(children)));
}

View ZStack(Alignment alignment, Children children) {
  return View(std::make_shared<const ZStackValue>(alignment, std::move(children)));
}

View Spacer(double minLength) { return View(std::make_shared<const SpacerValue>(minLength)); }

}  // namespace viewkit
