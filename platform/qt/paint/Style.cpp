// SPDX-License-Identifier: MIT
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

QColor outline(const QPalette& palette, qreal strength) {
  if (isHighContrast()) strength = look::kHighContrastOutlineStrength;
  return blended(palette.color(QPalette::Window), palette.color(QPalette::WindowText), strength);
}

QRect scrollSlider(const QStyleOptionSlider& bar) {
  const bool isVertical = bar.orientation == Qt::Vertical;
  const int track =
      (isVertical ? bar.rect.height() : bar.rect.width()) - 2 * look::scrollBar::kEdge;
  const double whole = double(bar.maximum) - bar.minimum + bar.pageStep;
  if (whole <= 0 || track <= 0) return bar.rect;
  const int length = std::clamp(static_cast<int>(track * bar.pageStep / whole),
                                std::min(look::scrollBar::kShortestSlider, track), track);
  const int start = look::scrollBar::kEdge +
                    QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    track - length, bar.upsideDown);
  return isVertical ? QRect(bar.rect.left(), bar.rect.top() + start, bar.rect.width(), length)
                    : QRect(bar.rect.left() + start, bar.rect.top(), length, bar.rect.height());
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar) {
  if (bar.maximum <= bar.minimum) return;
  const bool isHeld = bar.state & QStyle::State_Sunken;
  const bool isActive = isHeld || (bar.state & QStyle::State_MouseOver);
  const qreal thickness =
      isActive ? look::scrollBar::kHoveredThickness : look::scrollBar::kThickness;
  QRectF handle = scrollSlider(bar);
  if (bar.orientation == Qt::Horizontal) {
    handle = {handle.left(), handle.bottom() - look::scrollBar::kEdge - thickness, handle.width(),
              thickness};
  } else if (bar.direction == Qt::RightToLeft) {
    handle = {handle.left() + look::scrollBar::kEdge, handle.top(), thickness, handle.height()};
  } else {
    handle = {handle.right() - look::scrollBar::kEdge - thickness, handle.top(), thickness,
              handle.height()};
  }
  QColor color = bar.palette.color(QPalette::Active, QPalette::WindowText);
  color.setAlphaF(isHeld     ? look::scrollBar::kPressedOpacity
                  : isActive ? look::scrollBar::kHoveredOpacity
                             : look::scrollBar::kOpacity);
  drawRoundedRect(painter, handle, {.radius = thickness / 2, .fill = color});
}

void drawRing(QPainter& painter, const QRectF& frame, qreal radius, const QColor& color) {
  drawRoundedRect(painter, frame,
                  {.radius = radius + look::kFocusRingWidth / 2,
                   .border = color,
                   .borderWidth = look::kFocusRingWidth});
}

// Draws the double arrow at the trailing edge of the area.
void drawIndicator(QPainter& painter, const QRectF& area, const QStyleOption& option) {
  constexpr qreal size = look::indicator::kSize;
  const bool rightToLeft = option.direction == Qt::RightToLeft;
  const qreal left = rightToLeft ? area.left() : area.right() - size;
  const qreal top = std::floor(area.center().y() - size / 2);
  const QColor color =
      blended(option.palette.color(QPalette::Button), option.palette.color(QPalette::ButtonText),
              look::indicator::kStrength);
  painter.drawPixmap(QPointF(left, top), symbolPixmap("chevron.up.chevron.down", {size, size},
                                                      color, devicePixelRatioOf(painter)));
}

}  // namespace

qreal Style::controlHeight() {
  return std::ceil(QFontMetricsF(QApplication::font()).height()) + 2 * look::kControlPadding;
}

void Style::drawFieldSurface(QPainter& painter, const QRectF& frame, const QPalette& palette,
                             bool enabled) {
  const QColor base = palette.color(QPalette::Base);
  drawRoundedRect(painter, frame,
                  {.radius = look::kCornerRadius + look::kOutlineWidth / 2,
                   .fill = enabled ? base
                                   : blended(palette.color(QPalette::Window), base,
                                             look::kDisabledFillStrength),
                   .border = outline(
                       palette, enabled ? look::kOutlineStrength : look::kDisabledOutlineStrength),
                   .borderWidth = look::kOutlineWidth});
}

void Style::drawFloatingSurface(QPainter& painter, const QRectF& frame, qreal radius,
                                const QPalette& palette) {
  drawRoundedRect(painter, frame,
                  {.radius = radius + look::kOutlineWidth / 2,
                   .fill = palette.color(QPalette::ToolTipBase),
                   .border = outline(palette, look::kOutlineStrength),
                   .borderWidth = look::kOutlineWidth});
}

void Style::drawShadow(QPainter& painter, const QRectF& frame, qreal extent) {
  // Translucent layers of growing size, one over the other, make a smooth gradient.
  const qreal reach = extent - look::popover::kShadowDrop;
  const QColor layer =
      QColor::fromRgbF(0, 0, 0, static_cast<float>(look::popover::kShadowOpacity / reach));
  for (qreal by = reach; by > 0; --by) {
    drawRoundedRect(painter,
                    frame.adjusted(-by, -by, by, by).translated(0, look::popover::kShadowDrop),
                    {.radius = look::popover::kCornerRadius + by, .fill = layer});
  }
}

double Style::contentOpacity(const QStyleOption& option) {
  return option.state & State_Sunken ? look::button::kPressedContentOpacity : 1;
}

Style::Style() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void Style::drawKeyboardFocus(QPainter& painter, const QWidget& widget, const QRectF& frame,
                              qreal radius) {
  if (widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange))
    drawFocusRing(painter, frame, radius, widget.palette());
}

void Style::drawButtonSurface(QPainter& painter, const QRectF& frame, qreal radius,
                              const QStyleOption& option) {
  const QPalette& palette = option.palette;
  const bool enabled = option.state & State_Enabled;
  QColor fill = palette.color(QPalette::Button);
  const QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
  if (!enabled) {
    fill = blended(palette.color(QPalette::Window), fill, look::kDisabledFillStrength);
  } else if (option.state & State_Sunken) {
    fill = blended(fill, text, look::button::kPressedStrength);
  } else if (option.state & State_MouseOver) {
    fill = blended(fill, text, look::button::kHoveredStrength);
  }
  drawRoundedRect(painter, frame,
                  {.radius = radius + look::kOutlineWidth / 2,
                   .fill = fill,
                   .border = outline(palette, enabled ? look::button::kOutlineStrength
                                                      : look::kDisabledOutlineStrength),
                   .borderWidth = look::kOutlineWidth});
}

QRectF Style::drawChoiceButton(QPainter& painter, const QRectF& frame, qreal margin, qreal gap,
                               const QStyleOption& option) {
  drawButtonSurface(painter, frame, look::kCornerRadius, option);
  drawIndicator(painter, frame.adjusted(margin, 0, -margin, 0), option);
  const qreal trailing = margin + look::indicator::kSize + gap;
  return option.direction == Qt::RightToLeft ? frame.adjusted(trailing, 0, -margin, 0)
                                             : frame.adjusted(margin, 0, -trailing, 0);
}

QSizeF Style::choiceButtonSize(qreal contentWidth, qreal margin, qreal gap) {
  return {margin + contentWidth + gap + look::indicator::kSize + margin, controlHeight()};
}

void Style::drawFocusRing(QPainter& painter, const QRectF& frame, qreal radius,
                          const QPalette& palette) {
  drawRing(painter, frame, radius, palette.color(QPalette::Highlight));
}

void Style::drawProblemRing(QPainter& painter, const QRectF& frame, qreal radius,
                            const QPalette& palette) {
  drawRing(painter, frame, radius, palette.color(QPalette::Active, QPalette::BrightText));
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
      drawButtonSurface(*painter, option->rect, look::kCornerRadius, *option);
      return;
    case PE_FrameFocusRect:
      if (option->state & State_KeyboardFocusChange) {
        drawFocusRing(*painter, option->rect, look::kCornerRadius, option->palette);
      }
      return;
    case PE_PanelTipLabel:
      painter->save();
      painter->setPen(outline(option->palette, look::tooltip::kOutlineStrength));
      painter->setBrush(option->palette.color(QPalette::ToolTipBase));
      painter->drawRoundedRect(option->rect.adjusted(0, 0, -1, -1), look::tooltip::kCornerRadius,
                               look::tooltip::kCornerRadius);
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
    case PM_ButtonMargin: return look::button::kDialogMargin;
    case PM_ToolTipLabelFrameWidth: return look::tooltip::kMargin;
    case PM_ScrollBarExtent: return look::scrollBar::kExtent;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
  switch (hint) {
    case SH_TabBar_Alignment: return Qt::AlignCenter;
    case SH_ToolTipLabel_Opacity: return 255;
    // Mnemonics are underlined only while Alt is pressed.
    case SH_UnderlineShortcut: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, result);
  }
}

}  // namespace qt
