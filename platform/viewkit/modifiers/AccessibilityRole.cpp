#include "tree/ModifierNode.hpp"

#include <algorithm>
#include <memory>

namespace viewkit {

namespace {

// Roles of things that hold others, each of which has a word of its own to say.
bool holdsOthers(Role role) {
  return role == Role::group || role == Role::list || role == Role::scrollArea ||
         role == Role::popover || role == Role::tabList;
}

Inherited::SpokenFor spokenForBy(Role role) {
  if (holdsOthers(role)) return Inherited::SpokenFor::nothing;
  // A row of a list is read in one go, and what can be used in it is still reached.
  return role == Role::listItem ? Inherited::SpokenFor::allButControls
                                : Inherited::SpokenFor::everything;
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
  bool speaksForContents() const override {
    return !holdsOthers(role()) && inherited().spokenFor == Inherited::SpokenFor::nothing;
  }
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
      next.spokenFor = std::max(next.spokenFor, spokenForBy(role()));
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

View modified::byAccessibilityRole(const View& content, Role role) {
  return modifiedView<RoleValue>(content, role);
}

}  // namespace viewkit
