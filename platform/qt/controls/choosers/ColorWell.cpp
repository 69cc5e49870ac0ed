#include "controls/choosers/ColorWell.hpp"

#include "paint/Colors.hpp"
#include "paint/Fonts.hpp"
#include "paint/Style.hpp"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>

#include <memory>

namespace qt {

namespace {

constexpr qreal kWidth = 44;
constexpr qreal kInset = 4;
constexpr qreal kSquare = 4;

void drawCheckerboard(QPainter& painter, const QRectF& area) {
  painter.fillRect(area, Qt::white);
  for (int row = 0; row * kSquare < area.height(); ++row) {
    for (int column = row % 2; column * kSquare < area.width(); column += 2) {
      painter.fillRect(
          QRectF(area.left() + column * kSquare, area.top() + row * kSquare, kSquare, kSquare),
          QColor(190, 190, 190));
    }
  }
}

// Where programs may not look at the screen, the button for it would give black.
void hideScreenPicker(const QColorDialog& dialog) {
  if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return;
  for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
    if (button->text() == QColorDialog::tr("&Pick Screen Color")) button->hide();
  }
}

// A chooser without buttons.
class ColorDialog final : public QColorDialog {
public:
  using QColorDialog::QColorDialog;

protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      accept();
    } else {
      QColorDialog::keyPressEvent(event);
    }
  }

  // Closing the chooser keeps what was picked.
  void closeEvent(QCloseEvent* event) override {
    event->accept();
    accept();
  }
};

appkit::RGBA rgbaOf(const QColor& color) {
  return {.red = color.redF(),
          .green = color.greenF(),
          .blue = color.blueF(),
          .opacity = color.alphaF()};
}

}  // namespace

QSizeF ColorWell::sizeFor() { return {kWidth, Style::controlHeight()}; }

void ColorWell::press() {
  const auto* well = control<viewkit::ColorWellControl>();
  if (!well) return;
  if (!dialog_) open(*well);
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
}

void ColorWell::open(const viewkit::ColorWellControl& well) {
  dialog_ = new ColorDialog(colorOf(well.color), window());
  dialog_->setAttribute(Qt::WA_DeleteOnClose);
  dialog_->setWindowTitle(qt::text(node()->accessibility.label));
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
  Style::drawButtonSurface(painter, frame, Style::kCornerRadius, styleOption());

  const QRectF swatch = frame.adjusted(kInset, kInset, -kInset, -kInset);
  constexpr qreal radius = Style::kCornerRadius - 3;
  QPainterPath outline;
  outline.addRoundedRect(swatch, radius, radius);
  const QColor color = colorOf(well->color);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipPath(outline);
  if (!isEnabled()) painter.setOpacity(0.4);
  if (color.alpha() < 255) drawCheckerboard(painter, swatch);
  painter.fillRect(swatch, color);
  painter.restore();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor(128, 128, 128, 110));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(swatch.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  if (Style::showsFocus(*this))
    Style::drawFocusRing(painter, frame, Style::kCornerRadius, palette());
}

}  // namespace qt
