#pragma once

#include "controls/menus/MenuOpener.hpp"

namespace qt {

// The platform's pop-up button: a title, and an arrow to show that there is more.
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
