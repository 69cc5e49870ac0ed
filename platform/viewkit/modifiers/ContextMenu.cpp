// SPDX-License-Identifier: MIT
#include "viewkit/ContextMenu.hpp"

#include "input/PointerRegion.hpp"
#include "input/menuItems.hpp"
#include "tree/ModifierNode.hpp"

#include <memory>
#include <utility>

namespace viewkit {

namespace {

class ContextMenuValue final : public ModifierValue {
public:
  ContextMenuValue(View content, std::function<std::vector<MenuItem>()> items)
      : ModifierValue(std::move(content)), items(std::move(items)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "ContextMenu"; }

  const std::function<std::vector<MenuItem>()> items;
};

class ContextMenuNode final : public ModifierNode, private PointerRegion {
public:
  PointerRegion* pointerRegion() override { return this; }

protected:
  void activeChanged() override { *isShown_ = isActive(); }

private:
  bool wantsContextMenu() const override { return true; }

  ContextMenu contextMenu() override {
    // Asking for the items may end this node, and the description with it.
    const View description = view();
    const auto shown = isShown_;
    return {.items =
                itemsWhile(shown, static_cast<const ContextMenuValue*>(description.value())->items),
            .isShown = [shown] { return *shown; }};
  }

  std::shared_ptr<bool> isShown_ = std::make_shared<bool>(false);
};

std::unique_ptr<Node> ContextMenuValue::makeNode() const {
  return std::make_unique<ContextMenuNode>();
}

}  // namespace

View contextMenu(const View& content, std::function<std::vector<MenuItem>()> items) {
  return modifiedView<ContextMenuValue>(content, std::move(items));
}

}  // namespace viewkit
