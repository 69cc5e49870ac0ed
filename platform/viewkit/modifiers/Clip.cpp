// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"

#include <memory>

namespace viewkit {

namespace {

class ClipValue final : public ModifierValue {
public:
  ClipValue(View content, double cornerRadius)
      : ModifierValue(std::move(content)), cornerRadius(cornerRadius) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Clip"; }

  const double cornerRadius;
};

class ClipNode final : public ModifierNode {
protected:
  void apply(const ViewValue* before) override {
    present().setClipRadius(valueAs<ClipValue>().cornerRadius);
    ModifierNode::apply(before);
  }
};

std::unique_ptr<Node> ClipValue::makeNode() const { return std::make_unique<ClipNode>(); }

}  // namespace

View modified::byClip(const View& content, double cornerRadius) {
  return modifiedView<ClipValue>(content, cornerRadius);
}

}  // namespace viewkit
