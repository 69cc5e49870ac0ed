#pragma once

#include "controls/ButtonWidget.hpp"
#include "controls/menus/MenuPopup.hpp"

#include <QPointer>

#include <string>

namespace qt {

// What opens a menu, by a press of the mouse or the keys that do so everywhere (see
// viewkit::opensMenu).
class MenuOpener : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;

  void closeOpened() override;
  bool isAtRest() const override { return !popup_ && ButtonWidget::isAtRest(); }
  // Of the menu that is open; nothing when none is.
  MenuList* openList() const { return popup_ ? &popup_->list() : nullptr; }

protected:
  void press() override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  virtual std::string currentTitle(const viewkit::MenuControl& menu) const = 0;
  virtual void open(MenuPopup& popup) = 0;

private:
  QPointer<MenuPopup> popup_;
};

}  // namespace qt
