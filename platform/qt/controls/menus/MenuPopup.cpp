#include "controls/menus/MenuPopup.hpp"

#include "controls/menus/MenuList.hpp"
#include "paint/Fonts.hpp"
#include "paint/Style.hpp"

#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace qt {

namespace {

constexpr int kPadding = 5;
constexpr int kScreenMargin = 8;
constexpr int kGap = 2;
constexpr int kMaxWidth = 560;
// Of the screen's height: a longer menu scrolls.
constexpr double kMaxShare = 0.7;

}  // namespace

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
  layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  layout->addWidget(list_);
  setFocusProxy(list_);
  list_->setPicked([this](int row) { pick(row); });

  const auto found = std::ranges::find(items_, current, &viewkit::MenuItem::title);
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
  const int limit = static_cast<int>(screen.height() * kMaxShare);
  const int height = std::min(naturalHeight(), limit);
  // The whole menu where it fits, else as much of it on both sides.
  const int wanted = naturalHeight() <= limit ? button.center().y() - kPadding - item.center().y()
                                              : button.center().y() - height / 2;
  const int top =
      std::clamp(wanted, screen.top(), std::max(screen.top(), screen.bottom() - height));
  // Over the button, and in sight as a whole where the button lies at the edge of the screen.
  const int half = (item.height() + 1) / 2;
  const int inList = std::clamp(button.center().y() - top - kPadding, half,
                                std::max(half, height - 2 * kPadding - half));
  open(top, height, item.center().y() - inList);
}

void MenuPopup::openUnder() {
  const QRect button = openerOnScreen();
  const QRect screen = available();
  const int below = screen.bottom() - button.bottom() - kGap;
  const int above = button.top() - screen.top() - kGap;
  const bool goesUp = naturalHeight() > below && above > below;
  const int height = std::min(
      {naturalHeight(), goesUp ? above : below, static_cast<int>(screen.height() * kMaxShare)});
  const int row = list_->currentRow();
  const int scrolledBy = row < 0 ? 0 : list_->rowRect(row).center().y() - height / 2;
  open(goesUp ? button.top() - kGap - height : button.bottom() + 1 + kGap, height, scrolledBy);
}

void MenuPopup::open(int top, int height, int scrolledBy) {
  const QRect button = openerOnScreen();
  const QRect screen = available();
  const int bar = height < naturalHeight() ? list_->verticalScrollBar()->sizeHint().width() : 0;
  const int width = std::clamp(list_->contentWidth() + 2 * kPadding + bar, button.width(),
                               std::max(button.width(), kMaxWidth));
  const int wanted =
      layoutDirection() == Qt::RightToLeft ? button.right() + 1 - width : button.left();
  const int left =
      std::clamp(wanted, screen.left(), std::max(screen.left(), screen.right() - width));
  setGeometry(left, top, width, height);
  show();
  list_->setFocus();
  // Before the list knows how long it is it does not scroll.
  layout()->activate();
  list_->doItemsLayout();
  list_->verticalScrollBar()->setValue(scrolledBy);
  tell(QAccessible::ObjectCreated);
}

void MenuPopup::hideEvent(QHideEvent* event) {
  tell(QAccessible::ObjectDestroyed);
  QFrame::hideEvent(event);
}

void MenuPopup::tell(QAccessible::Event what) {
  QAccessibleEvent event(list_, what);
  QAccessible::updateAccessibility(&event);
}

int MenuPopup::naturalHeight() const { return list_->contentHeight() + 2 * kPadding; }

QRect MenuPopup::openerOnScreen() const {
  return {opener_->mapToGlobal(QPoint()), opener_->size()};
}

QRect MenuPopup::available() const {
  return opener_->screen()->availableGeometry().adjusted(kScreenMargin, kScreenMargin,
                                                         -kScreenMargin, -kScreenMargin);
}

void MenuPopup::pick(int row) {
  const auto action = items_[static_cast<size_t>(row)].action;
  close();
  if (action) action();
}

void MenuPopup::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Style::drawFloatingSurface(painter, rect(), Style::kCornerRadius, palette());
}

void MenuPopup::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  QPainterPath outline;
  outline.addRoundedRect(rect(), Style::kCornerRadius, Style::kCornerRadius);
  setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

}  // namespace qt
