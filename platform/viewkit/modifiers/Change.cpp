// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"
#include "tree/NodeServices.hpp"

#include <any>
#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

class ChangeValue final : public ModifierValue {
public:
  using IsEqual = std::function<bool(const std::any&, const std::any&)>;

  ChangeValue(View content, std::any watched, IsEqual isEqual, std::function<void()> action)
      : ModifierValue(std::move(content)),
        watched(std::move(watched)),
        isEqual(std::move(isEqual)),
        action(std::move(action)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "OnChange"; }

  const std::any watched;
  const IsEqual isEqual;
  const std::function<void()> action;
};

class ChangeNode final : public ModifierNode {
protected:
  bool hasSameIdentity(const ViewValue& next) const override {
    return static_cast<const ChangeValue&>(next).watched.type() ==
           valueAs<ChangeValue>().watched.type();
  }

  void apply(const ViewValue* before) override {
    ModifierNode::apply(before);
    const auto& value = valueAs<ChangeValue>();
    if (!before || value.isEqual(static_cast<const ChangeValue*>(before)->watched, value.watched))
      return;
    services().callAfterLayout(HandlerKind::change, value.action);
  }
};

std::unique_ptr<Node> ChangeValue::makeNode() const { return std::make_unique<ChangeNode>(); }

}  // namespace

View modified::byChange(const View& content, std::any value,
                        std::function<bool(const std::any&, const std::any&)> isEqual,
                        std::function<void()> action) {
  return modifiedView<ChangeValue>(content, std::move(value), std::move(isEqual),
                                   std::move(action));
}

}  // namespace viewkit
