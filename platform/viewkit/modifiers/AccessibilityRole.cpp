#include "ModifierNode.hpp"

#include <memory>

namespace viewkit {

namespace {

// Roles of things that hold others, each of which has a word of its own to say.
bool holdsOthers(Role role) {
  return role == Role::group || role == Role::list || role == Role::scrollArea || role == Role::popover ||
         role == Role::tabList;
}

class RoleValue final : public ModifierValue {
public:
  RoleValue(View content, Role role) : ModifierValue(std::move(content)), role(role) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "AccessibilityRole"; }

  const Role role;
};

class RoleNode final : public ModifierNode {
public:
  bool speaksForContents() const override { return !holdsOthers(role()) && !inherited().collapsed; }
  void contentsChanged() override { say(); }

protected:
  void apply(const ViewValue* before) override {
    present();
    ModifierNode::apply(before);
    say();
  }

  const InheritedPtr& inheritedByContent() override {
    return handedOn_.from(inheritedPtr(), [this](Inherited& next) {
      next.forOne = {};
      next.collapsed = next.collapsed || !holdsOthers(role());
    });
  }

private:
  Role role() const { return valueAs<RoleValue>().role; }

  void say() {
    if (role() == Role::none) return setAccessibility({});
    setAccessibility({
        .role = role(),
        .label = holdsOthers(role()) ? std::string() : spokenContents(),
        .pressable = inherited().enabled && !holdsOthers(role()) && clickRegion() != nullptr,
    });
  }

  HandedOn handedOn_;
};

std::unique_ptr<Node> RoleValue::makeNode() const { return std::make_unique<RoleNode>(); }

}  // namespace

View modified::byAccessibilityRole(const View& content, Role role) { return modifiedView<RoleValue>(content, role); }

}  // namespace viewkit
