// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"

#include <QAccessible>
#include <QFrame>
#include <QPointer>

#include <string>
#include <vector>

namespace qt {

class MenuList;

// An open menu: a pop-up window with a list of items. It deletes itself when it closes, which it
// does when the user picks an item or clicks outside. A menu of a thousand items opens as fast as
// a short one.
class MenuPopup : public QFrame {
public:
  // `current` is the title of the item that is chosen now.
  MenuPopup(std::vector<viewkit::MenuItem> items, const std::string& current, QWidget& opener);

  // Opens with the current item over the opener, as a pop-up button does.
  void openOver();
  // Opens below the opener, or above it where there is more room.
  void openUnder();
  // Opens below or above a rectangle of the screen, as wide as its items.
  void openAt(const QRect& anchor);

  MenuList& list() const { return *list_; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private:
  void open(int top, int height, int scrolledBy, const QRect& anchor, int leastWidth);
  void openBeside(const QRect& anchor, int leastWidth);
  void pick(int row);
  // Tells assistive technology that the menu was opened or closed.
  void announce(QAccessible::Event event);
  int naturalHeight() const;
  QRect openerOnScreen() const;
  // The part of the screen that the menu may cover.
  QRect available() const;

  std::vector<viewkit::MenuItem> items_;
  QPointer<QWidget> opener_;
  MenuList* list_;
};

}  // namespace qt
