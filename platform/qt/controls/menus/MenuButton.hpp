// SPDX-License-Identifier: MIT
#pragma once

#include "controls/menus/MenuOpener.hpp"

namespace qt {

// A pop-up button: a title and a double arrow.
class MenuButton : public MenuOpener {
public:
  using MenuOpener::MenuOpener;

  static QSizeF sizeFor(const viewkit::MenuControl& menu);

  bool shows(const viewkit::PresentationNode& node) const override {
    return MenuOpener::shows(node) && std::get<viewkit::MenuControl>(*node.control()).kind ==
                                          viewkit::MenuControl::Kind::popUpButton;
  }

protected:
  void paintEvent(QPaintEvent* event) override;
  std::string currentTitle(const viewkit::MenuControl& menu) const override { return menu.title; }
  void open(MenuPopup& popup) override { popup.openOver(); }
};

}  // namespace qt
