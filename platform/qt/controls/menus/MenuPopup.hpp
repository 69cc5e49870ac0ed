#pragma once

#include "viewkit/Control.hpp"

#include <QAccessible>
#include <QFrame>
#include <QPointer>

#include <string>
#include <vector>

namespace qt {

class MenuList;

// An open menu: a list in a surface of its own, made for a handful of items as for a thousand. It
// is there until the person picks an item or goes elsewhere.
class MenuPopup : public QFrame {
public:
  // `current` is the title of the item that is chosen now.
  MenuPopup(std::vector<viewkit::MenuItem> items, const std::string& current, QWidget& opener);

  // Opens with the current item over the opener, as a pop-up button does, or under the opener.
  void openOver();
  void openUnder();

  MenuList& list() const { return *list_; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private:
  void open(int top, int height, int scrolledBy);
  void pick(int row);
  // That the menu is there, or is no longer, to assistive technology.
  void tell(QAccessible::Event what);
  int naturalHeight() const;
  QRect openerOnScreen() const;
  QRect available() const;

  std::vector<viewkit::MenuItem> items_;
  QPointer<QWidget> opener_;
  MenuList* list_;
};

}  // namespace qt
