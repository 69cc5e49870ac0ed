// SPDX-License-Identifier: MIT
#include "controls/menus/MenuPopup.hpp"

#include "bridge/Strings.hpp"
#include "controls/menus/MenuList.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace qt {

MenuPopup::MenuPopup(std::vector<viewkit::MenuItem> items, const std::string& current,
                     QWidget& opener)
    : QFrame(opener.window(), Qt::Popup | Qt::FramelessWindowHint),
      items_(std::move(items)),
      opener_(&opener),
      list_(new MenuList(items_, opener, *this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAccessibleName(opener.accessibleName());
  setLayoutDirection(opener.layoutDirection());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(look::menu::kPadding, look::menu::kPadding, look::menu::kPadding,
                             look::menu::kPadding);
  layout->addWidget(list_);
  setFocusProxy(list_);
  list_->setPicked([this](int row) { pick(row); });

  auto found = std::ranges::find(items_, true, &viewkit::MenuItem::isCurrent);
  if (found == items_.end()) found = std::ranges::find(items_, current, &viewkit::MenuItem::title);
  list_->setCurrentRow(found != items_.end() ? static_cast<int>(found - items_.begin()) : -1);
}

void MenuPopup::openOver() {
  const int row = list_->currentRow();
  if (row < 0) {
    openUnder();
    return;
  }
  const QRect button = openerOnScreen();
  const QRect screen = available();
  const QRect item = list_->rowRect(row);
  const int limit = static_cast<int>(screen.height() * look::menu::kMaxShare);
  const int height = std::min(naturalHeight(), limit);
  // A menu that fits shows the current item over the button; a longer one is centred on the button.
  const int wanted = naturalHeight() <= limit
                         ? button.center().y() - look::menu::kPadding - item.center().y()
                         : button.center().y() - height / 2;
  const int top =
      std::clamp(wanted, screen.top(), std::max(screen.top(), screen.bottom() - height));
  // The current item lies over the button, but stays whole where the button is near the edge of the
  // screen.
  const int half = (item.height() + 1) / 2;
  const int inList = std::clamp(button.center().y() - top - look::menu::kPadding, half,
                                std::max(half, height - 2 * look::menu::kPadding - half));
  open(top, height, item.center().y() - inList, button, button.width());
}

void MenuPopup::openUnder() { openBeside(openerOnScreen(), opener_->width()); }

void MenuPopup::openAt(const QRect& anchor) { openBeside(anchor, 0); }

void MenuPopup::openBeside(const QRect& anchor, int leastWidth) {
  const QRect screen = available();
  const int below = screen.bottom() - anchor.bottom() - look::menu::kGap;
  const int above = anchor.top() - screen.top() - look::menu::kGap;
  const bool goesUp = naturalHeight() > below && above > below;
  const int height = std::min({naturalHeight(), goesUp ? above : below,
                               static_cast<int>(screen.height() * look::menu::kMaxShare)});
  const int row = list_->currentRow();
  const int scrolledBy = row < 0 ? 0 : list_->rowRect(row).center().y() - height / 2;
  open(goesUp ? anchor.top() - look::menu::kGap - height : anchor.bottom() + 1 + look::menu::kGap,
       height, scrolledBy, anchor, leastWidth);
}

void MenuPopup::open(int top, int height, int scrolledBy, const QRect& anchor, int leastWidth) {
  const QRect screen = available();
  const int bar = height < naturalHeight() ? list_->verticalScrollBar()->sizeHint().width() : 0;
  const int width = std::clamp(list_->contentWidth() + 2 * look::menu::kPadding + bar, leastWidth,
                               std::max(leastWidth, look::menu::kMaxWidth));
  const int wanted =
      layoutDirection() == Qt::RightToLeft ? anchor.right() + 1 - width : anchor.left();
  const int left =
      std::clamp(wanted, screen.left(), std::max(screen.left(), screen.right() - width));
  setGeometry(left, top, width, height);
  show();
  list_->setFocus();
  // The list scrolls only once its items are laid out.
  layout()->activate();
  list_->doItemsLayout();
  list_->verticalScrollBar()->setValue(scrolledBy);
  announce(QAccessible::ObjectCreated);
}

void MenuPopup::hideEvent(QHideEvent* event) {
  announce(QAccessible::ObjectDestroyed);
  QFrame::hideEvent(event);
}

void MenuPopup::announce(QAccessible::Event event) {
  QAccessibleEvent announcement(list_, event);
  QAccessible::updateAccessibility(&announcement);
}

int MenuPopup::naturalHeight() const { return list_->contentHeight() + 2 * look::menu::kPadding; }

QRect MenuPopup::openerOnScreen() const {
  return {opener_->mapToGlobal(QPoint()), opener_->size()};
}

QRect MenuPopup::available() const {
  return opener_->screen()->availableGeometry().adjusted(
      look::menu::kScreenMargin, look::menu::kScreenMargin, -look::menu::kScreenMargin,
      -look::menu::kScreenMargin);
}

void MenuPopup::pick(int row) {
  const auto action = items_[static_cast<size_t>(row)].action;
  close();
  if (action) action();
}

void MenuPopup::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Style::drawFloatingSurface(painter, rect(), look::kCornerRadius, palette());
}

void MenuPopup::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  QPainterPath outline;
  outline.addRoundedRect(rect(), look::kCornerRadius, look::kCornerRadius);
  setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

}  // namespace qt
