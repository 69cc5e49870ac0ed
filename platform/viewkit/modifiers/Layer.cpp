// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"
#include "viewkit/Shape.hpp"

#include <memory>

namespace viewkit {

namespace {

// Another view, behind the content or over it. It is proposed the content's size and does not
// influence it.
class LayerValue final : public ModifierValue {
public:
  enum class Side { behind, over };

  LayerValue(View content, Side side, View layer, Alignment alignment)
      : ModifierValue(std::move(content)),
        side(side),
        layer(std::move(layer)),
        alignment(alignment) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return side == Side::behind ? "Background" : "Overlay"; }

  const Side side;
  const View layer;
  const Alignment alignment;
};

class LayerNode final : public ModifierNode {
public:
  void visitChildren(const Visitor& visit) override {
    const bool behind = valueAs<LayerValue>().side == LayerValue::Side::behind;
    if (layer_ && behind) visit(*layer_);
    ModifierNode::visitChildren(visit);
    if (layer_ && !behind) visit(*layer_);
  }

protected:
  bool hasSameIdentity(const ViewValue& next) const override {
    return static_cast<const LayerValue&>(next).side == valueAs<LayerValue>().side;
  }

  void apply(const ViewValue* before) override {
    ModifierNode::apply(before);
    reconcile(layer_, valueAs<LayerValue>().layer, inheritedByChildren());
    if (before &&
        static_cast<const LayerValue*>(before)->alignment != valueAs<LayerValue>().alignment) {
      placementChanged();
    }
  }

  void placeChildren() override {
    ModifierNode::placeChildren();
    if (!layer_) return;
    const Size layerSize = layer_->sizeThatFits({size().width, size().height});
    placeChild(*layer_, aligned(layerSize, size(), valueAs<LayerValue>().alignment), layerSize);
  }

private:
  std::unique_ptr<Node> layer_;
};

std::unique_ptr<Node> LayerValue::makeNode() const { return std::make_unique<LayerNode>(); }

}  // namespace

View modified::byBackground(const View& content, const View& background, Alignment alignment) {
  return modifiedView<LayerValue>(content, LayerValue::Side::behind, background, alignment);
}

View modified::byBackgroundColor(const View& content, Color color) {
  return byBackground(content, RoundedRectangle().fill(color), {});
}

View modified::byOverlay(const View& content, const View& overlay, Alignment alignment) {
  return modifiedView<LayerValue>(content, LayerValue::Side::over, overlay, alignment);
}

}  // namespace viewkit
