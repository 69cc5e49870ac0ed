#include "paint/Style.hpp"

#include "paint/Colors.hpp"
#include "paint/NodePainter.hpp"
#include "paint/RoundedRect.hpp"
#include "paint/Symbols.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

constexpr qreal kTooltipRadius = 0;
constexpr qreal kFocusRingWidth = 2;
constexpr int kButtonMargin = 12;
constexpr int kControlPadding = 5;

constexpr int kScrollBarExtent = 12;
constexpr qreal kScrollBarThickness = 6;
constexpr qreal kHoveredScrollBarThickness = 8;
constexpr int kScrollBarEdge = 2;
constexpr int kShortestSlider = 24;

// Around the surface of a control or of what floats, on the outside of the radius that it is told.
constexpr qreal kOutline = 1;

QColor outline(const QPalette& palette, qreal strength) {
  return blended(palette.color(QPalette::Window), palette.color(QPalette::WindowText), strength);
}

QRect scrollSlider(const QStyleOptionSlider& bar) {
  const bool isVertical = bar.orientation == Qt::Vertical;
  const int track = (isVertical ? bar.rect.height() : bar.rect.width()) - 2 * kScrollBarEdge;
  const double whole = double(bar.maximum) - bar.minimum + bar.pageStep;
  if (whole <= 0 || track <= 0) return bar.rect;
  const int length = std::clamp(static_cast<int>(track * bar.pageStep / whole),
                                std::min(kShortestSlider, track), track);
  const int start =
      kScrollBarEdge + QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                       track - length, bar.upsideDown);
  return isVertical ? QRect(bar.rect.left(), bar.rect.top() + start, bar.rect.width(), length)
                    : QRect(bar.rect.left() + start, bar.rect.top(), length, bar.rect.height());
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar) {
  if (bar.maximum <= bar.minimum) return;
  const bool isHeld = bar.state & QStyle::State_Sunken;
  const bool isActive = isHeld || (bar.state & QStyle::State_MouseOver);
  const qreal thickness = isActive ? kHoveredScrollBarThickness : kScrollBarThickness;
  QRectF handle = scrollSlider(bar);
  if (bar.orientation == Qt::Horizontal) {
    handle = {handle.left(), handle.bottom() - kScrollBarEdge - thickness, handle.width(),
              thickness};
  } else if (bar.direction == Qt::RightToLeft) {
    handle = {handle.left() + kScrollBarEdge, handle.top(), thickness, handle.height()};
  } else {
    handle = {handle.right() - kScrollBarEdge - thickness, handle.top(), thickness,
              handle.height()};
  }
  QColor color = bar.palette.color(QPalette::Active, QPalette::WindowText);
  color.setAlphaF(isHeld ? 0.55F : isActive ? 0.42F : 0.28F);
  drawRoundedRect(painter, handle, {.radius = thickness / 2, .fill = color});
}

}  // namespace

qreal Style::controlHeight() {
  return std::ceil(QFontMetricsF(QApplication::font()).height()) + 2 * kControlPadding;
}

void Style::drawFieldSurface(QPainter& painter, const QRectF& frame, const QPalette& palette,
                             bool enabled) {
  const QColor base = palette.color(QPalette::Base);
  drawRoundedRect(painter, frame,
                  {.radius = kCornerRadius + kOutline / 2,
                   .fill = enabled ? base : blended(palette.color(QPalette::Window), base, 0.4),
                   .border = outline(palette, enabled ? 0.22 : 0.12),
                   .borderWidth = kOutline});
}

void Style::drawFloatingSurface(QPainter& painter, const QRectF& frame, qreal radius,
                                const QPalette& palette) {
  drawRoundedRect(painter, frame,
                  {.radius = radius + kOutline / 2,
                   .fill = palette.color(QPalette::ToolTipBase),
                   .border = outline(palette, 0.22),
                   .borderWidth = kOutline});
}

void Style::drawShadow(QPainter& painter, const QRectF& frame, qreal extent) {
  constexpr double darkest = 0.16;
  constexpr qreal drop = 3;
  // One faint layer over the other: together they fade out smoothly.
  const qreal reach = extent - drop;
  const QColor layer = QColor::fromRgbF(0, 0, 0, static_cast<float>(darkest / reach));
  for (qreal by = reach; by > 0; --by) {
    drawRoundedRect(painter, frame.adjusted(-by, -by, by, by).translated(0, drop),
                    {.radius = kFloatingRadius + by, .fill = layer});
  }
}

void Style::drawIndicator(QPainter& painter, const QRectF& area, bool rightToLeft,
                          const QPalette& palette) {
  const qreal left = rightToLeft ? area.left() : area.right() - kIndicatorSize;
  const qreal top = std::floor(area.center().y() - kIndicatorSize / 2);
  const QColor color =
      blended(palette.color(QPalette::Button), palette.color(QPalette::ButtonText), 0.7);
  painter.drawPixmap(QPointF(left, top),
                     symbolPixmap("chevron.up.chevron.down", {kIndicatorSize, kIndicatorSize},
                                  color, devicePixelRatioOf(painter)));
}

double Style::contentOpacity(const QStyleOption& option) {
  return option.state & State_Sunken ? 0.6 : 1;
}

Style::Style() : QProxyStyle(QStyleFactory::create("Fusion")) {}

bool Style::showsFocus(const QWidget& widget) {
  return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void Style::drawButtonSurface(QPainter& painter, const QRectF& frame, qreal radius,
                              const QStyleOption& option) {
  const QPalette& palette = option.palette;
  const bool enabled = option.state & State_Enabled;
  QColor fill = palette.color(QPalette::Button);
  const QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
  if (!enabled) {
    fill = blended(palette.color(QPalette::Window), fill, 0.4);
  } else if (option.state & State_Sunken) {
    fill = blended(fill, text, 0.14);
  } else if (option.state & State_MouseOver) {
    fill = blended(fill, text, 0.05);
  }
  drawRoundedRect(painter, frame,
                  {.radius = radius + kOutline / 2,
                   .fill = fill,
                   .border = outline(palette, enabled ? 0.2 : 0.12),
                   .borderWidth = kOutline});
}

void Style::drawFocusRing(QPainter& painter, const QRectF& frame, qreal radius,
                          const QPalette& palette) {
  drawRoundedRect(painter, frame,
                  {.radius = radius + kFocusRingWidth / 2,
                   .border = palette.color(QPalette::Highlight),
                   .borderWidth = kFocusRingWidth});
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
  const auto* bar =
      control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  if (bar) {
    drawScrollBar(*painter, *bar);
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl part, const QWidget* widget) const {
  const auto* bar =
      control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  if (!bar) return QProxyStyle::subControlRect(control, option, part, widget);
  const QRect slider = scrollSlider(*bar);
  QRect before = bar->rect;
  QRect after = bar->rect;
  if (bar->orientation == Qt::Vertical) {
    before.setBottom(slider.top() - 1);
    after.setTop(slider.bottom() + 1);
  } else {
    before.setRight(slider.left() - 1);
    after.setLeft(slider.right() + 1);
  }
  switch (part) {
    case SC_ScrollBarGroove: return bar->rect;
    case SC_ScrollBarSlider: return slider;
    case SC_ScrollBarSubPage: return before;
    case SC_ScrollBarAddPage: return after;
    default: return {};
  }
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      drawButtonSurface(*painter, option->rect, kCornerRadius, *option);
      return;
    case PE_FrameFocusRect:
      if (option->state & State_KeyboardFocusChange) {
        drawFocusRing(*painter, option->rect, kCornerRadius, option->palette);
      }
      return;
    case PE_PanelTipLabel:
      painter->save();
      painter->setPen(outline(option->palette, 0.2));
      painter->setBrush(option->palette.color(QPalette::ToolTipBase));
      painter->drawRoundedRect(option->rect.adjusted(0, 0, -1, -1), kTooltipRadius, kTooltipRadius);
      painter->restore();
      return;
    default: QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
  switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical: return 0;
    case PM_ButtonMargin: return kButtonMargin;
    case PM_ToolTipLabelFrameWidth: return 5;
    case PM_ScrollBarExtent: return kScrollBarExtent;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
  switch (hint) {
    case SH_TabBar_Alignment: return Qt::AlignCenter;
    case SH_ToolTipLabel_Opacity: return 255;
    // No lines under letters until a person asks for them.
    case SH_UnderlineShortcut: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, result);
  }
}

}  // namespace qt
