// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"

#include <memory>

namespace viewkit {

namespace {

class FixedSizeValue final : public ModifierValue {
public:
  FixedSizeValue(View content, bool horizontal, bool vertical)
      : ModifierValue(std::move(content)), horizontal(horizontal), vertical(vertical) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "FixedSize"; }

  const bool horizontal;
  const bool vertical;
};

class FixedSizeNode final : public ModifierNode {
protected:
  void apply(const ViewValue* before) override {
    ModifierNode::apply(before);
    const auto* last = static_cast<const FixedSizeValue*>(before);
    const auto& value = valueAs<FixedSizeValue>();
    if (last && (last->horizontal != value.horizontal || last->vertical != value.vertical))
      layoutChanged();
  }

  Measurement measure(const ProposedSize& proposal) override {
    return content()->measured(inside(proposal));
  }

  void placeChildren() override {
    placeChild(*content(), {}, content()->sizeThatFits(inside({size().width, size().height})));
  }

private:
  ProposedSize inside(const ProposedSize& offered) const {
    const auto& value = valueAs<FixedSizeValue>();
    return {value.horizontal ? std::nullopt : offered.width,
            value.vertical ? std::nullopt : offered.height};
  }
};

std::unique_ptr<Node> FixedSizeValue::makeNode() const { return std::make_unique<FixedSizeNode>(); }

}  // namespace

View modified::byFixedSize(const View& content, bool horizontal, bool vertical) {
  return modifiedView<FixedSizeValue>(content, horizontal, vertical);
}

}  // namespace viewkit
