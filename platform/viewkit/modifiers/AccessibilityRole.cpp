// SPDX-License-Identifier: MIT
#include "input/PointerRegion.hpp"
#include "tree/ModifierNode.hpp"
#include "tree/Speech.hpp"

#include <algorithm>
#include <memory>

namespace viewkit {

namespace {

// Whether a view of this role contains others that assistive technology is told one by one.
bool isContainer(Role role) {
  return role == Role::group || role == Role::list || role == Role::scrollArea ||
         role == Role::popover || role == Role::tabList;
}

Inherited::SpokenFor spokenForBy(Role role) {
  if (isContainer(role)) return Inherited::SpokenFor::nothing;
  // A row of a list is read as a whole, but the controls in it are still reached.
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
  bool refreshSpokenContents() override {
    const bool speaksForContents =
        !isContainer(role()) && inherited().spokenFor == Inherited::SpokenFor::nothing;
    if (speaksForContents) updateAccessibility();
    return speaksForContents;
  }

protected:
  void apply(const ViewValue* before) override {
    present();
    ModifierNode::apply(before);
    updateAccessibility();
  }

  const InheritedPtr& inheritedByContent() override {
    return inheritedByContent_.of(inheritedPtr(), [this](Inherited& next) {
      next.forNearest = {};
      next.spokenFor = std::max(next.spokenFor, spokenForBy(role()));
    });
  }

private:
  Role role() const { return valueAs<RoleValue>().role; }

  void updateAccessibility() {
    if (role() == Role::none) return present().setAccessibility({});
    present().setAccessibility({
        .role = role(),
        .label = isContainer(role()) ? std::string() : spokenContents(*this),
        .pressable =
            inherited().enabled && !isContainer(role()) && nodeClickedByPressing(*this) != nullptr,
    });
  }

  InheritedOverride inheritedByContent_;
};

std::unique_ptr<Node> RoleValue::makeNode() const { return std::make_unique<RoleNode>(); }

}  // namespace

View modified::byAccessibilityRole(const View& content, Role role) {
  return modifiedView<RoleValue>(content, role);
}

}  // namespace viewkit
