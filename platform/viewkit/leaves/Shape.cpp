// SPDX-License-Identifier: MIT
#include "viewkit/Shape.hpp"

#include "tree/Node.hpp"

#include <memory>

namespace viewkit {

namespace {

// The length of a shape that is proposed no length.
constexpr double kIdealLength = 10;

class ShapeValue final : public ViewValue {
public:
  explicit ShapeValue(const ShapeVisual& visual) : visual(visual) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "RoundedRectangle"; }

  const ShapeVisual visual;
};

class ShapeNode final : public Node {
public:
  bool cachesMeasurements() const override { return false; }

protected:
  void apply(const ViewValue* before) override {
    static_cast<void>(before);
    present().setContent(valueAs<ShapeValue>().visual);
    present().setAccessibility({});
  }

  Measurement measure(const ProposedSize& proposal) override {
    return {{proposal.width.value_or(kIdealLength), proposal.height.value_or(kIdealLength)}};
  }
};

std::unique_ptr<Node> ShapeValue::makeNode() const { return std::make_unique<ShapeNode>(); }

}  // namespace

RoundedRectangle::operator View() const {
  return View(std::make_shared<const ShapeValue>(ShapeVisual{
      .cornerRadius = cornerRadius_,
      .cornerStyle = cornerStyle_,
      .fill = fill_,
      .border = border_,
      .borderWidth = borderWidth_,
  }));
}

}  // namespace viewkit
