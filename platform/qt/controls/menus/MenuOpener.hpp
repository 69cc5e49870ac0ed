// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"
#include "controls/menus/MenuPopup.hpp"

#include <QPointer>

#include <string>

namespace qt {

// The base of controls that open a menu, when the mouse is pressed or by the keys of
// viewkit::opensMenu.
class MenuOpener : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;

  void closeOpened() override;
  bool isAtRest() const override { return !popup_ && ButtonWidget::isAtRest(); }
  // The list of the open menu; null when none is open.
  MenuList* openList() const { return popup_ ? &popup_->list() : nullptr; }

protected:
  void press() override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  // The title of the item that is chosen now.
  virtual std::string currentTitle(const viewkit::MenuControl& menu) const = 0;
  virtual void open(MenuPopup& popup) = 0;

private:
  QPointer<MenuPopup> popup_;
};

}  // namespace qt
