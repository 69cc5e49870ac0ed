#include "Style.hpp"

#include "Colors.hpp"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

namespace qt {

namespace {

constexpr qreal kButtonRadius = 6;
constexpr qreal kTooltipRadius = 0;
constexpr qreal kFocusRingWidth = 2;
constexpr int kButtonMargin = 12;

QColor outline(const QPalette& palette, qreal strength) {
  return blended(palette.color(QPalette::Window), palette.color(QPalette::WindowText), strength);
}

}  // namespace

Style::Style() : QProxyStyle(QStyleFactory::create("Fusion")) {}

bool Style::showsFocus(const QWidget& widget) {
  return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void Style::drawButtonSurface(QPainter& painter, const QRectF& frame, qreal radius, const QStyleOption& option) {
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
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(outline(palette, enabled ? 0.2 : 0.12), 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

void Style::drawFocusRing(QPainter& painter, const QRectF& frame, qreal radius, const QPalette& palette) {
  constexpr qreal half = kFocusRingWidth / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette.color(QPalette::Highlight), kFocusRingWidth));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(frame.adjusted(half, half, -half, -half), radius, radius);
  painter.restore();
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand: drawButtonSurface(*painter, option->rect, kButtonRadius, *option); return;
    case PE_FrameFocusRect:
      if (option->state & State_KeyboardFocusChange) {
        drawFocusRing(*painter, option->rect, kButtonRadius, option->palette);
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

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical: return 0;
    case PM_ButtonMargin: return kButtonMargin;
    case PM_ToolTipLabelFrameWidth: return 5;
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
