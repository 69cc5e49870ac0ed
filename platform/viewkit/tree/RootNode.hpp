#pragma once

#include "tree/ModifierNode.hpp"

namespace viewkit {

// The node around the root view. It always has a presentation, and is as large as the window.
class RootValue final : public ModifierValue {
public:
  using ModifierValue::ModifierValue;
  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Window"; }
};

class RootNode final : public ModifierNode {
protected:
  void apply(const ViewValue* before) override {
    present();
    ModifierNode::apply(before);
  }
  void placeChildren() override {
    if (content())
      placeChild(*content(), {}, content()->sizeThatFits({size().width, size().height}));
  }
};

inline std::unique_ptr<Node> RootValue::makeNode() const { return std::make_unique<RootNode>(); }

}  // namespace viewkit
