// SPDX-License-Identifier: MIT
#include "controls/TabBar.hpp"

#include "bridge/Strings.hpp"
#include "paint/Colors.hpp"
#include "paint/Fonts.hpp"
#include "paint/Look.hpp"
#include "paint/NodePainter.hpp"
#include "paint/RoundedRect.hpp"
#include "paint/Style.hpp"
#include "paint/Symbols.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace qt {

namespace {

QFont titleFont() { return fontOf(viewkit::Font::callout()); }

QSizeF tabSize(const QString& title) {
  const QFontMetricsF metrics(titleFont());
  return {std::max(look::tabBar::kMinWidth,
                   std::ceil(metrics.horizontalAdvance(title)) + 2 * look::tabBar::kPadding),
          look::tabBar::kTop + look::tabBar::kSymbolSize + look::tabBar::kGap +
              std::ceil(metrics.height()) + look::tabBar::kBottom};
}

}  // namespace

TabBar::TabBar(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent)
    : QTabBar(&parent), ControlWidget(tree, node) {
  setDrawBase(false);
  setExpanding(false);
  setUsesScrollButtons(false);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QTabBar::currentChanged, this, [this](int index) {
    if (refreshing_ || index < 0) return;
    call(&viewkit::TabBarControl::select, index);
    refreshLater();
  });
}

QSizeF TabBar::sizeFor(const viewkit::TabBarControl& tabs) {
  QSizeF size;
  for (const auto& item : tabs.items) {
    const QSizeF tab = tabSize(toQString(item.title));
    size = {size.width() + tab.width(), std::max(size.height(), tab.height())};
  }
  return size;
}

void TabBar::refresh() {
  const auto* tabs = control<viewkit::TabBarControl>();
  if (!tabs) return;
  refreshing_ = true;
  const int wanted = static_cast<int>(tabs->items.size());
  while (count() > wanted) removeTab(count() - 1);
  while (count() < wanted) addTab({});
  for (int i = 0; i < wanted; ++i) {
    const QString title = toQString(tabs->items[static_cast<size_t>(i)].title);
    if (tabText(i) != title) setTabText(i, title);
  }
  setCurrentIndex(tabs->selected);
  refreshing_ = false;
  update();
}

QSize TabBar::tabSizeHint(int index) const { return tabSize(tabText(index)).toSize(); }

QSize TabBar::minimumTabSizeHint(int index) const {
  return {qRound(look::tabBar::kSymbolSize), tabSizeHint(index).height()};
}

void TabBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(titleFont());
  for (int i = 0; i < count(); ++i) paintTab(painter, i);
}

void TabBar::paintTab(QPainter& painter, int index) {
  const auto* tabs = control<viewkit::TabBarControl>();
  if (!tabs || index >= static_cast<int>(tabs->items.size())) return;
  const QRectF frame =
      QRectF(tabRect(index)).adjusted(look::tabBar::kInset, 0, -look::tabBar::kInset, 0);
  const bool isSelected = index == currentIndex();
  const bool isHovered = underMouse() && tabRect(index).contains(mapFromGlobal(QCursor::pos()));
  const QColor label = palette().color(QPalette::WindowText);
  if (isSelected || isHovered) {
    const QColor fill = blended(
        palette().color(QPalette::Window), label,
        isSelected ? look::tabBar::kSelectedFillStrength : look::tabBar::kHoveredFillStrength);
    drawRoundedRect(painter, frame, {.radius = look::kCornerRadius, .fill = fill});
  }
  const QColor color =
      isSelected ? palette().color(QPalette::Active, QPalette::Highlight)
                 : blended(palette().color(QPalette::Window), label, look::tabBar::kLabelStrength);
  const QPointF corner(std::floor(frame.center().x() - look::tabBar::kSymbolSize / 2),
                       frame.top() + look::tabBar::kTop);
  painter.drawPixmap(corner, symbolPixmap(tabs->items[static_cast<size_t>(index)].symbol.text(),
                                          {look::tabBar::kSymbolSize, look::tabBar::kSymbolSize},
                                          color, devicePixelRatioOf(painter)));
  painter.setPen(color);
  const qreal top = look::tabBar::kTop + look::tabBar::kSymbolSize + look::tabBar::kGap;
  const QRectF area(frame.left() + look::tabBar::kInset, frame.top() + top,
                    frame.width() - 2 * look::tabBar::kInset,
                    frame.height() - top - look::tabBar::kBottom);
  const QString title =
      QFontMetricsF(painter.font())
          .elidedText(tabText(index), Qt::ElideRight, area.width() + look::kElisionTolerance);
  painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, title);
  if (isSelected) Style::drawKeyboardFocus(painter, *this, frame);
}

void TabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace qt
