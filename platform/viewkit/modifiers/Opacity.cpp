// SPDX-License-Identifier: MIT
#include "tree/FadesOut.hpp"
#include "tree/ModifierNode.hpp"
#include "tree/NodeServices.hpp"

#include <memory>

namespace viewkit {

namespace {

class OpacityValue final : public ModifierValue {
public:
  OpacityValue(View content, double opacity)
      : ModifierValue(std::move(content)), opacity(opacity) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Opacity"; }

  const double opacity;
};

class OpacityNode final : public ModifierNode {
protected:
  void apply(const ViewValue* before) override {
    present().setOpacity(valueAs<OpacityValue>().opacity);
    ModifierNode::apply(before);
  }
};

std::unique_ptr<Node> OpacityValue::makeNode() const { return std::make_unique<OpacityNode>(); }

class OpacityTransitionValue final : public ModifierValue {
public:
  using ModifierValue::ModifierValue;

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "OpacityTransition"; }
};

class OpacityTransitionNode final : public ModifierNode, public FadesOut {
protected:
  void apply(const ViewValue* before) override {
    present();
    ModifierNode::apply(before);
    if (!before) services().fadeIn(*this);
  }
};

std::unique_ptr<Node> OpacityTransitionValue::makeNode() const {
  return std::make_unique<OpacityTransitionNode>();
}

}  // namespace

View modified::byOpacity(const View& content, double opacity) {
  return modifiedView<OpacityValue>(content, opacity);
}

View modified::byOpacityTransition(const View& content) {
  return modifiedView<OpacityTransitionValue>(content);
}

}  // namespace viewkit
