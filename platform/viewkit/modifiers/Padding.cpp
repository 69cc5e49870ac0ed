// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"

#include <algorithm>
#include <memory>

namespace viewkit {

namespace {

class PaddingValue final : public ModifierValue {
public:
  PaddingValue(View content, const EdgeInsets& insets)
      : ModifierValue(std::move(content)), insets(insets) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Padding"; }

  const EdgeInsets insets;
};

class PaddingNode final : public ModifierNode {
public:
  bool cachesMeasurements() const override { return true; }

protected:
  void apply(const ViewValue* before) override {
    ModifierNode::apply(before);
    if (before && static_cast<const PaddingValue*>(before)->insets != insets()) layoutChanged();
  }

  Measurement measure(const ProposedSize& proposal) override {
    const double across = insets().leading + insets().trailing;
    const double down = insets().top + insets().bottom;
    const auto less = [](std::optional<double> length, double by) {
      return length ? std::optional(std::max(0.0, *length - by)) : length;
    };
    Measurement measurement =
        content()->measured({less(proposal.width, across), less(proposal.height, down)});
    measurement.size = {measurement.size.width + across, measurement.size.height + down};
    if (measurement.firstBaseline) *measurement.firstBaseline += insets().top;
    return measurement;
  }

  void placeChildren() override {
    placeChild(*content(), {insets().leading, insets().top},
               {std::max(0.0, size().width - insets().leading - insets().trailing),
                std::max(0.0, size().height - insets().top - insets().bottom)});
  }

private:
  const EdgeInsets& insets() const { return valueAs<PaddingValue>().insets; }
};

std::unique_ptr<Node> PaddingValue::makeNode() const { return std::make_unique<PaddingNode>(); }

}  // namespace

View modified::byPadding(const View& content, const EdgeInsets& insets) {
  return modifiedView<PaddingValue>(content, insets);
}

EdgeInsets modified::insets(Edges edges, double length) {
  switch (edges) {
    case Edges::all: return {length, length, length, length};
    case Edges::horizontal: return {.leading = length, .trailing = length};
    case Edges::vertical: return {.top = length, .bottom = length};
    case Edges::top: return {.top = length};
    case Edges::leading: return {.leading = length};
    case Edges::bottom: return {.bottom = length};
    case Edges::trailing: return {.trailing = length};
  }
  return {};
}

}  // namespace viewkit
