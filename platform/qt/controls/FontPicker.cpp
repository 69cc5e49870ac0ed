#include "FontPicker.hpp"

#include "Fonts.hpp"
#include "NodePainter.hpp"
#include "Style.hpp"
#include "Symbols.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QFontMetricsF>
#include <QGroupBox>
#include <QPainter>

#include <cmath>

namespace qt {

namespace {

constexpr qreal kMargin = 9;
constexpr qreal kSampleWidth = 24;
constexpr qreal kGap = 6;
constexpr int kSampleHeight = 96;

const QString& sample() {
  static const QString letters = QStringLiteral("Aa");
  return letters;
}

// Underlining and the like are no part of a font of ours; the sample gets their room.
void hideEffects(const QFontDialog& dialog) {
  for (QGroupBox* group : dialog.findChildren<QGroupBox*>()) {
    if (group->findChild<QCheckBox*>()) {
      group->hide();
    } else {
      group->setMinimumHeight(kSampleHeight);
    }
  }
}

}  // namespace

QSizeF FontPicker::sizeFor(const viewkit::FontPickerControl& picker) {
  qreal width = 2 * kMargin + kSampleWidth + kGap + Style::kIndicatorSize;
  if (!picker.title.empty()) {
    width += std::ceil(QFontMetricsF(QApplication::font()).horizontalAdvance(qt::text(picker.title))) + kGap;
  }
  return {width, Style::controlHeight()};
}

void FontPicker::press() {
  const auto* picker = control<viewkit::FontPickerControl>();
  if (!picker) return;
  if (!dialog_) {
    dialog_ = new QFontDialog(fontOf(picker->font), window());
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    const auto& told = node()->accessibility;
    dialog_->setWindowTitle(qt::text(told.label.empty() ? told.help : told.label));
    dialog_->setOption(QFontDialog::DontUseNativeDialog);
    dialog_->setOption(QFontDialog::NoButtons);
    hideEffects(*dialog_);
    connect(dialog_, &QFontDialog::currentFontChanged, this, [this](const QFont& font) {
      settleOn([this, font] { call(&viewkit::FontPickerControl::choose, fontFrom(font)); });
    });
  }
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
}

void FontPicker::paintEvent(QPaintEvent* /*event*/) {
  const auto* picker = control<viewkit::FontPickerControl>();
  if (!picker) return;
  QPainter painter(this);
  const QRectF frame = rect();
  Style::drawButtonSurface(painter, frame, Style::kCornerRadius, styleOption());
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  Style::drawIndicator(painter, frame.adjusted(kMargin, 0, -kMargin, 0), rightToLeft, palette());

  const qreal trailing = kMargin + Style::kIndicatorSize + kGap;
  QRectF content = rightToLeft ? frame.adjusted(trailing, 0, -kMargin, 0) : frame.adjusted(kMargin, 0, -trailing, 0);
  painter.setPen(palette().color(QPalette::ButtonText));
  if (!picker->title.empty()) {
    const int leading = rightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(content, leading | Qt::AlignVCenter | Qt::TextSingleLine, qt::text(picker->title));
    const qreal taken = content.width() - kSampleWidth;
    content = rightToLeft ? content.adjusted(0, 0, -taken, 0) : content.adjusted(taken, 0, 0, 0);
  }
  QFont font = fontOf(picker->font);
  font.setPointSizeF(this->font().pointSizeF());
  painter.setFont(font);
  painter.drawText(content, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, sample());
  if (Style::showsFocus(*this)) Style::drawFocusRing(painter, frame, Style::kCornerRadius, palette());
}

}  // namespace qt
