// SPDX-License-Identifier: MIT
#include "input/PointerRegion.hpp"
#include "tree/ModifierNode.hpp"
#include "tree/NodeServices.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

class HoverValue final : public ModifierValue {
public:
  HoverValue(View content, std::function<void(bool)> action)
      : ModifierValue(std::move(content)), action(std::move(action)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "OnHover"; }

  const std::function<void(bool)> action;
};

class HoverNode final : public ModifierNode, private PointerRegion {
public:
  PointerRegion* pointerRegion() override { return this; }

protected:
  void activeChanged() override {
    if (!isActive()) hover(false);
  }

private:
  bool wantsHover() const override { return true; }

  void hover(bool inside) override {
    if (std::exchange(isInside_, inside) == inside) return;
    services().callAfterLayout(HandlerKind::event,
                               [description = view(), inside] { actionOf(description)(inside); });
  }

  static const std::function<void(bool)>& actionOf(const View& description) {
    return static_cast<const HoverValue*>(description.value())->action;
  }

  bool isInside_ = false;
};

std::unique_ptr<Node> HoverValue::makeNode() const { return std::make_unique<HoverNode>(); }

class TapValue final : public ModifierValue {
public:
  TapValue(View content, std::function<void()> action)
      : ModifierValue(std::move(content)), action(std::move(action)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "OnTap"; }

  const std::function<void()> action;
};

class TapNode final : public ModifierNode, private PointerRegion {
public:
  PointerRegion* pointerRegion() override { return this; }

private:
  bool wantsClick() const override { return inherited().enabled; }

  void click() override {
    // The action may end this node, and the description with it.
    const View description = view();
    static_cast<const TapValue*>(description.value())->action();
  }
};

std::unique_ptr<Node> TapValue::makeNode() const { return std::make_unique<TapNode>(); }

}  // namespace

View modified::byHover(const View& content, std::function<void(bool)> action) {
  return modifiedView<HoverValue>(content, std::move(action));
}

View modified::byTap(const View& content, std::function<void()> action) {
  return modifiedView<TapValue>(content, std::move(action));
}

}  // namespace viewkit
