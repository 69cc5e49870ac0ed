#pragma once

#include <QProxyStyle>

namespace qt {

// How controls look: flat, quiet, the same in light and dark, on top of Qt's portable style.
class Style : public QProxyStyle {
public:
  Style();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;

  // The raised surface of a button, filled and outlined. Also for controls that draw themselves.
  static void drawButtonSurface(QPainter& painter, const QRectF& frame, qreal radius, const QStyleOption& option);
  // The ring around what has the keyboard.
  static void drawFocusRing(QPainter& painter, const QRectF& frame, qreal radius, const QPalette& palette);
  // Whether the person goes about with the keyboard, so that the ring is wanted.
  static bool showsFocus(const QWidget& widget);
};

}  // namespace qt
