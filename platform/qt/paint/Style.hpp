#pragma once

#include <QProxyStyle>

namespace qt {

// How controls look: flat, quiet, the same in light and dark, on top of Qt's portable style.
class Style : public QProxyStyle {
public:
  Style();

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;

  // Of buttons, fields and menus; of surfaces that stand above a window.
  static constexpr qreal kCornerRadius = 6;
  static constexpr qreal kFloatingRadius = 9;
  // The arrows that say that there is a choice.
  static constexpr qreal kIndicatorSize = 10;
  // Of a control with one line of text.
  static qreal controlHeight();

  // The raised surface of a button, filled and outlined. Also for controls that draw themselves.
  static void drawButtonSurface(QPainter& painter, const QRectF& frame, qreal radius,
                                const QStyleOption& option);
  // What a text is edited in.
  static void drawFieldSurface(QPainter& painter, const QRectF& frame, const QPalette& palette,
                               bool enabled);
  // A surface above the window, and the shadow around it, which fades out within `extent`.
  static void drawFloatingSurface(QPainter& painter, const QRectF& frame, qreal radius,
                                  const QPalette& palette);
  static void drawShadow(QPainter& painter, const QRectF& frame, qreal extent);
  // The arrows, at the trailing edge of the area.
  static void drawIndicator(QPainter& painter, const QRectF& area, bool rightToLeft,
                            const QPalette& palette);
  // Of the views in a control without a look of its own.
  static double contentOpacity(const QStyleOption& option);
  // The ring around what has the keyboard.
  static void drawFocusRing(QPainter& painter, const QRectF& frame, qreal radius,
                            const QPalette& palette);
  // Whether the person goes about with the keyboard, so that the ring is wanted.
  static bool showsFocus(const QWidget& widget);
};

}  // namespace qt
