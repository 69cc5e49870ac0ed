// SPDX-License-Identifier: MIT
#pragma once

#include "paint/Look.hpp"

#include <QProxyStyle>

namespace qt {

// Draws controls: Qt's own where dialogs use them, and the parts that our controls are made of.
// What it does not draw is left to Qt's Fusion style. Lengths are points.
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

  // The height of a control with one line of text, points.
  static qreal controlHeight();

  // The filled and outlined surface of a button, as hovered, pressed and enabled as `option` says.
  static void drawButtonSurface(QPainter& painter, const QRectF& frame, qreal radius,
                                const QStyleOption& option);
  // The surface of a text field.
  static void drawFieldSurface(QPainter& painter, const QRectF& frame, const QPalette& palette,
                               bool enabled);
  // The surface of a popover or menu, and the shadow around it, which fades out within `extent`.
  static void drawFloatingSurface(QPainter& painter, const QRectF& frame, qreal radius,
                                  const QPalette& palette);
  static void drawShadow(QPainter& painter, const QRectF& frame, qreal extent);
  // A button that opens a menu or a chooser: the surface of a button with a double arrow at its
  // trailing edge. `margin` lies at both ends, `gap` between the content and the arrow. Returns the
  // rectangle of the content.
  static QRectF drawChoiceButton(QPainter& painter, const QRectF& frame, qreal margin, qreal gap,
                                 const QStyleOption& option);
  static QSizeF choiceButtonSize(qreal contentWidth, qreal margin, qreal gap);
  // The opacity of the views in a plain button.
  static double contentOpacity(const QStyleOption& option);
  static void drawFocusRing(QPainter& painter, const QRectF& frame, qreal radius,
                            const QPalette& palette);
  // In place of the focus ring, around a field whose text was refused.
  static void drawProblemRing(QPainter& painter, const QRectF& frame, qreal radius,
                              const QPalette& palette);
  // Draws the focus ring of a widget that has the focus, if the user uses the keyboard.
  static void drawKeyboardFocus(QPainter& painter, const QWidget& widget, const QRectF& frame,
                                qreal radius = look::kCornerRadius);
};

}  // namespace qt
