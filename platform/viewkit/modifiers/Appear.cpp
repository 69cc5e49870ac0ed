// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"
#include "tree/NodeServices.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

class AppearValue final : public ModifierValue {
public:
  AppearValue(View content, std::function<void()> appear, std::function<void()> disappear)
      : ModifierValue(std::move(content)),
        appear(std::move(appear)),
        disappear(std::move(disappear)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return appear ? "OnAppear" : "OnDisappear"; }

  const std::function<void()> appear;
  const std::function<void()> disappear;
};

class AppearNode final : public ModifierNode {
protected:
  bool hasSameIdentity(const ViewValue& next) const override {
    return static_cast<bool>(static_cast<const AppearValue&>(next).appear) ==
           static_cast<bool>(valueAs<AppearValue>().appear);
  }

  void activeChanged() override {
    const auto& value = valueAs<AppearValue>();
    const auto& action = isActive() ? value.appear : value.disappear;
    if (action) services().callAfterLayout(HandlerKind::event, action);
  }
};

std::unique_ptr<Node> AppearValue::makeNode() const { return std::make_unique<AppearNode>(); }

}  // namespace

View modified::byAppear(const View& content, std::function<void()> appear,
                        std::function<void()> disappear) {
  return modifiedView<AppearValue>(content, std::move(appear), std::move(disappear));
}

}  // namespace viewkit
