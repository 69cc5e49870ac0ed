#include "tree/ModifierNode.hpp"

#include <memory>
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
  Found find(const ViewId& id) override {
    return id == valueAs<IdValue>().id ? Found{this, {{}, size()}} : ModifierNode::find(id);
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
