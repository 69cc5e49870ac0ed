// SPDX-License-Identifier: MIT
#include "controls/choosers/FontPicker.hpp"

#include "bridge/Strings.hpp"
#include "controls/choosers/ChooserDialog.hpp"
#include "paint/Fonts.hpp"
#include "paint/Look.hpp"
#include "paint/NodePainter.hpp"
#include "paint/Style.hpp"
#include "paint/Symbols.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGroupBox>
#include <QPainter>
#include <QSignalBlocker>

#include <cmath>
#include <functional>
#include <utility>

namespace qt {

namespace {

const QString& sample() {
  static const QString letters = QStringLiteral("Aa");
  return letters;
}

// Hides underlining and the like, which a stored font does not have, and enlarges the sample
// instead.
void hideEffects(const QFontDialog& dialog) {
  for (QGroupBox* group : dialog.findChildren<QGroupBox*>()) {
    if (group->findChild<QCheckBox*>()) {
      group->hide();
    } else {
      group->setMinimumHeight(look::fontPicker::kDialogSampleHeight);
    }
  }
}

}  // namespace

QSizeF FontPicker::sizeFor(const viewkit::FontPickerControl& picker) {
  qreal width = look::fontPicker::kSampleWidth;
  if (!picker.title.empty()) {
    const QFontMetricsF metrics(QApplication::font());
    width += std::ceil(metrics.horizontalAdvance(toQString(picker.title))) + look::fontPicker::kGap;
  }
  return Style::choiceButtonSize(width, look::fontPicker::kMargin, look::fontPicker::kGap);
}

void FontPicker::press() {
  const auto* picker = control<viewkit::FontPickerControl>();
  if (!picker) return;
  const appkit::Font current = std::function(picker->read)();
  if (!node()) return;
  if (!dialog_) makeDialog(current);
  showInDialog(current);
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
}

void FontPicker::refresh() {
  ButtonWidget::refresh();
  const auto* picker = control<viewkit::FontPickerControl>();
  if (dialog_ && picker && picker->font != font_) showInDialog(picker->font);
}

void FontPicker::makeDialog(const appkit::Font& before) {
  chosen_ = std::nullopt;
  dialog_ = new ChooserDialog<QFontDialog>(window());
  dialog_->setAttribute(Qt::WA_DeleteOnClose);
  dialog_->setWindowTitle(accessibleNameOf(node()->accessibility));
  dialog_->setOption(QFontDialog::DontUseNativeDialog);
  dialog_->setOption(QFontDialog::NoButtons);
  hideEffects(*dialog_);
  connect(dialog_, &QFontDialog::currentFontChanged, this, [this](const QFont& font) {
    settleOn([this, picked = fontFrom(font)] { choose(picked); });
  });
  connect(dialog_, &QDialog::rejected, this, [this, before] {
    settleOn([this, before] {
      const auto* picker = control<viewkit::FontPickerControl>();
      const auto read = picker ? picker->read : nullptr;
      if (chosen_ && read && read() == *chosen_) call(&viewkit::FontPickerControl::choose, before);
    });
  });
}

void FontPicker::showInDialog(const appkit::Font& font) {
  const QSignalBlocker quiet(dialog_);
  QFont shown = fontOf(font);
  // The dialog selects the first style of the family for a font without one.
  if (font.style.empty()) shown.setStyleName(QFontInfo(shown).styleName());
  dialog_->setCurrentFont(shown);
  font_ = font;
  shownFont_ = fontFrom(dialog_->currentFont());
}

void FontPicker::choose(const appkit::Font& picked) {
  const appkit::Font before = std::exchange(shownFont_, picked);
  if (picked.family != before.family || picked.style != before.style) {
    font_.family = picked.family;
    font_.style = picked.style;
  }
  if (picked.pointSize != before.pointSize) font_.pointSize = picked.pointSize;
  if (picked == before) return;
  chosen_ = font_;
  call(&viewkit::FontPickerControl::choose, font_);
}

void FontPicker::paintEvent(QPaintEvent* /*event*/) {
  const auto* picker = control<viewkit::FontPickerControl>();
  if (!picker) return;
  QPainter painter(this);
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  QRectF content = Style::drawChoiceButton(painter, rect(), look::fontPicker::kMargin,
                                           look::fontPicker::kGap, styleOption());
  painter.setPen(palette().color(QPalette::ButtonText));
  if (!picker->title.empty()) {
    const int leading = rightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(content, leading | Qt::AlignVCenter | Qt::TextSingleLine,
                     toQString(picker->title));
    const qreal taken = content.width() - look::fontPicker::kSampleWidth;
    content = rightToLeft ? content.adjusted(0, 0, -taken, 0) : content.adjusted(taken, 0, 0, 0);
  }
  QFont font = fontOf(picker->font);
  font.setPointSizeF(this->font().pointSizeF());
  painter.setFont(font);
  painter.drawText(content, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, sample());
  Style::drawKeyboardFocus(painter, *this, rect());
}

}  // namespace qt
