// SPDX-License-Identifier: MIT
#include "controls/MenuNode.hpp"

#include "controls/ControlNode.hpp"
#include "input/menuItems.hpp"

#include <memory>
#include <utility>
#include <variant>

namespace viewkit {

namespace {

class MenuValue final : public ControlValue {
public:
  using ControlValue::ControlValue;
  std::unique_ptr<Node> makeNode() const override;
};

class MenuNode final : public ControlNode {
protected:
  Control presentedControl() override {
    const auto& described = std::get<MenuControl>(value().control);
    const auto items = [description = view(), shown = isShown_] {
      return itemsWhile(shown, std::get<MenuControl>(valueOf(description).control).items);
    };
    return MenuControl{.title = described.title, .items = items, .kind = described.kind};
  }

  void activeChanged() override { *isShown_ = isActive(); }

private:
  static const MenuValue& valueOf(const View& description) {
    return static_cast<const MenuValue&>(*description.value());
  }

  std::shared_ptr<bool> isShown_ = std::make_shared<bool>(false);
};

std::unique_ptr<Node> MenuValue::makeNode() const { return std::make_unique<MenuNode>(); }

}  // namespace

View makeMenu(const char* name, MenuControl control, Accessibility accessibility,
              const View& content) {
  return View(std::make_shared<const MenuValue>(name, std::move(control), std::move(accessibility),
                                                content));
}

}  // namespace viewkit
