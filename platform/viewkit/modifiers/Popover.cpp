// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"
#include "tree/NodeServices.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

// The surface, which is the parent of all that it shows.
class PopoverSurfaceValue final : public ModifierValue {
public:
  PopoverSurfaceValue(View content, std::function<void()> dismiss, bool staysForView)
      : ModifierValue(std::move(content)),
        dismiss(std::move(dismiss)),
        staysForView(staysForView) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Popover"; }

  const std::function<void()> dismiss;
  const bool staysForView;
};

class PopoverSurfaceNode final : public ModifierNode {
protected:
  void apply(const ViewValue* before) override {
    const auto& value = valueAs<PopoverSurfaceValue>();
    present().setContent(
        Control(PopoverControl{.dismiss = value.dismiss, .staysForParent = value.staysForView}));
    present().setAccessibility({.role = Role::popover});
    ModifierNode::apply(before);
  }

  // A popover that disappears together with its anchor stays closed when the anchor comes back.
  void activeChanged() override {
    if (isActive()) return;
    services().callAfterLayout(HandlerKind::event, valueAs<PopoverSurfaceValue>().dismiss);
  }
};

std::unique_ptr<Node> PopoverSurfaceValue::makeNode() const {
  return std::make_unique<PopoverSurfaceNode>();
}

class PopoverValue final : public ModifierValue {
public:
  PopoverValue(View content, View surface, PopoverOptions options)
      : ModifierValue(std::move(content)), surface(std::move(surface)), options(options) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "PopoverAnchor"; }

  // Empty while the popover is closed.
  const View surface;
  const PopoverOptions options;
};

class PopoverNode final : public ModifierNode {
public:
  void visitChildren(const Visitor& visit) override {
    ModifierNode::visitChildren(visit);
    if (surface_) visit(*surface_);
  }

protected:
  void apply(const ViewValue* before) override {
    // The surface stands beside this node's frame.
    present();
    ModifierNode::apply(before);
    reconcile(surface_, valueAs<PopoverValue>().surface, inheritedBySurface());
    if (before && static_cast<const PopoverValue*>(before)->options.maxWidth != options().maxWidth)
      placementChanged();
  }

  void placeChildren() override {
    ModifierNode::placeChildren();
    if (surface_) {
      placeChild(*surface_, {0, size().height},
                 surface_->sizeThatFits({options().maxWidth, std::nullopt}));
    }
  }

private:
  const PopoverOptions& options() const { return valueAs<PopoverValue>().options; }

  // The surface inherits nothing but the environment: it is no part of the view beside it.
  const InheritedPtr& inheritedBySurface() {
    return inheritedBySurface_.of(
        inheritedPtr(), [](Inherited& next) { next = Inherited{.environment = next.environment}; });
  }

  InheritedOverride inheritedBySurface_;
  std::unique_ptr<Node> surface_;
};

std::unique_ptr<Node> PopoverValue::makeNode() const { return std::make_unique<PopoverNode>(); }

}  // namespace

View modified::byPopover(const View& content, const Binding<bool>& isPresented,
                         std::function<View()> popover, PopoverOptions options) {
  const View surface = isPresented.get() ? modifiedView<PopoverSurfaceValue>(
                                               popover(), [isPresented] { isPresented.set(false); },
                                               options.staysForView)
                                         : View{};
  return modifiedView<PopoverValue>(content, surface, options);
}

}  // namespace viewkit
