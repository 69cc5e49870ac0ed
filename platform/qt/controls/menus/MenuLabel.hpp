// SPDX-License-Identifier: MIT
#pragma once

#include "controls/menus/MenuOpener.hpp"

namespace qt {

// A button whose label is made of views and which opens a menu.
class MenuLabel : public MenuOpener {
public:
  using MenuOpener::MenuOpener;

  bool holdsChildren() const override { return true; }
  bool shows(const viewkit::PresentationNode& node) const override {
    return MenuOpener::shows(node) && std::get<viewkit::MenuControl>(*node.control()).kind ==
                                          viewkit::MenuControl::Kind::label;
  }

protected:
  void paintEvent(QPaintEvent* event) override;
  std::string currentTitle(const viewkit::MenuControl& menu) const override;
  void open(MenuPopup& popup) override { popup.openUnder(); }
};

}  // namespace qt
