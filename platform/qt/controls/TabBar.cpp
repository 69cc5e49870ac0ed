#include "controls/TabBar.hpp"

#include "paint/Colors.hpp"
#include "paint/Fonts.hpp"
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

constexpr qreal kSymbolSize = 20;
constexpr qreal kPadding = 14;
constexpr qreal kTop = 6;
constexpr qreal kGap = 3;
constexpr qreal kBottom = 5;
constexpr qreal kMinWidth = 68;

QFont titleFont() { return fontOf(viewkit::Font::callout()); }

QSizeF tabSize(const QString& title) {
  const QFontMetricsF metrics(titleFont());
  return {std::max(kMinWidth, std::ceil(metrics.horizontalAdvance(title)) + 2 * kPadding),
          kTop + kSymbolSize + kGap + std::ceil(metrics.height()) + kBottom};
}

}  // namespace

TabBar::TabBar(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent)
    : QTabBar(&parent), ControlWidget(mirror, node) {
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
    const QSizeF tab = tabSize(text(item.title));
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
    const QString title = text(tabs->items[static_cast<size_t>(i)].title);
    if (tabText(i) != title) setTabText(i, title);
  }
  setCurrentIndex(tabs->selected);
  refreshing_ = false;
  update();
}

QSize TabBar::tabSizeHint(int index) const { return tabSize(tabText(index)).toSize(); }

QSize TabBar::minimumTabSizeHint(int index) const {
  return {qRound(kSymbolSize), tabSizeHint(index).height()};
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
  const QRectF frame = QRectF(tabRect(index)).adjusted(2, 0, -2, 0);
  const bool isSelected = index == currentIndex();
  const bool isHovered = underMouse() && tabRect(index).contains(mapFromGlobal(QCursor::pos()));
  const QColor label = palette().color(QPalette::WindowText);
  if (isSelected || isHovered) {
    const QColor fill = blended(palette().color(QPalette::Window), label, isSelected ? 0.1 : 0.05);
    drawRoundedRect(painter, frame, {.radius = Style::kCornerRadius, .fill = fill});
  }
  const QColor color = isSelected ? palette().color(QPalette::Active, QPalette::Highlight)
                                  : blended(palette().color(QPalette::Window), label, 0.75);
  const QPointF corner(std::floor(frame.center().x() - kSymbolSize / 2), frame.top() + kTop);
  painter.drawPixmap(corner,
                     symbolPixmap(tabs->items[static_cast<size_t>(index)].symbol.text(),
                                  {kSymbolSize, kSymbolSize}, color, devicePixelRatioOf(painter)));
  painter.setPen(color);
  const qreal top = kTop + kSymbolSize + kGap;
  const QRectF area(frame.left() + 2, frame.top() + top, frame.width() - 4,
                    frame.height() - top - kBottom);
  const QString title =
      QFontMetricsF(painter.font()).elidedText(tabText(index), Qt::ElideRight, area.width() + 1);
  painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, title);
  if (isSelected && Style::showsFocus(*this)) {
    Style::drawFocusRing(painter, frame, Style::kCornerRadius, palette());
  }
}

void TabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace qt
