// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"

#include <memory>
#include <optional>
#include <utility>

namespace viewkit {

namespace {

class IdValue final : public ModifierValue {
public:
  IdValue(View content, ViewId id) : ModifierValue(std::move(content)), id(std::move(id)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Id"; }

  const ViewId id;
};

class IdNode final : public ModifierNode {
public:
  std::optional<Rect> frameOf(const ViewId& id) const override {
    return id == valueAs<IdValue>().id ? std::optional(Rect{{}, size()}) : std::nullopt;
  }

protected:
  bool hasSameIdentity(const ViewValue& next) const override {
    return static_cast<const IdValue&>(next).id == valueAs<IdValue>().id;
  }
};

std::unique_ptr<Node> IdValue::makeNode() const { return std::make_unique<IdNode>(); }

}  // namespace

View modified::byId(const View& content, ViewId id) {
  return modifiedView<IdValue>(content, std::move(id));
}

}  // namespace viewkit
