// SPDX-License-Identifier: MIT
#include "controls/choosers/ColorWell.hpp"

#include "bridge/Strings.hpp"
#include "controls/choosers/ChooserDialog.hpp"
#include "paint/Colors.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>

#include <memory>

namespace qt {

namespace {

void drawCheckerboard(QPainter& painter, const QRectF& area) {
  painter.fillRect(area, look::colorWell::kLightCheck);
  for (int row = 0; row * look::colorWell::kCheckSize < area.height(); ++row) {
    for (int column = row % 2; column * look::colorWell::kCheckSize < area.width(); column += 2) {
      painter.fillRect(QRectF(area.left() + column * look::colorWell::kCheckSize,
                              area.top() + row * look::colorWell::kCheckSize,
                              look::colorWell::kCheckSize, look::colorWell::kCheckSize),
                       look::colorWell::kDarkCheck);
    }
  }
}

// On Wayland a program may not read the screen: the button that picks a colour from it gives black.
void hideScreenPicker(const QColorDialog& dialog) {
  if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return;
  for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
    if (button->text() == QColorDialog::tr("&Pick Screen Color")) button->hide();
  }
}

appkit::RGBA rgbaOf(const QColor& color) {
  return {.red = color.redF(),
          .green = color.greenF(),
          .blue = color.blueF(),
          .opacity = color.alphaF()};
}

}  // namespace

QSizeF ColorWell::sizeFor() { return {look::colorWell::kWidth, Style::controlHeight()}; }

void ColorWell::press() {
  const auto* well = control<viewkit::ColorWellControl>();
  if (!well) return;
  if (!dialog_) open(*well);
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
}

void ColorWell::open(const viewkit::ColorWellControl& well) {
  dialog_ = new ChooserDialog<QColorDialog>(colorOf(well.color), window());
  dialog_->setAttribute(Qt::WA_DeleteOnClose);
  dialog_->setWindowTitle(toQString(node()->accessibility.label));
  dialog_->setOption(QColorDialog::DontUseNativeDialog);
  dialog_->setOption(QColorDialog::NoButtons);
  dialog_->setOption(QColorDialog::ShowAlphaChannel, well.supportsOpacity);
  hideScreenPicker(*dialog_);
  const auto hasChosen = std::make_shared<bool>(false);
  connect(dialog_, &QColorDialog::currentColorChanged, this,
          [this, hasChosen](const QColor& color) {
            *hasChosen = true;
            settleOn(
                [this, color = rgbaOf(color)] { call(&viewkit::ColorWellControl::choose, color); });
          });
  connect(dialog_, &QDialog::rejected, this, [this, hasChosen, restore = well.checkpoint()] {
    if (!*hasChosen) return;
    settleOn([this, restore] {
      if (node()) restore();
    });
  });
}

void ColorWell::closeOpened() {
  if (dialog_) dialog_->close();
}

void ColorWell::paintEvent(QPaintEvent* /*event*/) {
  const auto* well = control<viewkit::ColorWellControl>();
  if (!well) return;
  QPainter painter(this);
  const QRectF frame = rect();
  Style::drawButtonSurface(painter, frame, look::kCornerRadius, styleOption());

  const QRectF swatch = frame.adjusted(look::colorWell::kInset, look::colorWell::kInset,
                                       -look::colorWell::kInset, -look::colorWell::kInset);
  constexpr qreal radius = look::colorWell::kSwatchRadius;
  QPainterPath outline;
  outline.addRoundedRect(swatch, radius, radius);
  const QColor color = colorOf(well->color);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipPath(outline);
  if (!isEnabled()) painter.setOpacity(look::colorWell::kDisabledOpacity);
  if (color.alpha() < 255) drawCheckerboard(painter, swatch);
  painter.fillRect(swatch, color);
  painter.restore();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look::colorWell::kSwatchOutline, look::colorWell::kSwatchOutlineWidth));
  painter.setBrush(Qt::NoBrush);
  constexpr qreal middle = look::colorWell::kSwatchOutlineWidth / 2;
  painter.drawRoundedRect(swatch.adjusted(middle, middle, -middle, -middle), radius, radius);
  Style::drawKeyboardFocus(painter, *this, frame);
}

}  // namespace qt
