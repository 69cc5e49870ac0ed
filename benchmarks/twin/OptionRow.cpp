// SPDX-License-Identifier: MIT
#include "OptionRow.hpp"

#include "SwitchButton.hpp"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMap>
#include <QMouseEvent>
#include <QPainter>

namespace twin {

namespace {

constexpr QSize kIcon(15, 15);
constexpr int kIconColumn = 20;
constexpr int kTint = 15;
constexpr qreal kCornerRadius = 5;

QIcon iconOf(const QString& label) {
  static const QMap<QString, QString> names{
      {QStringLiteral("Compute checksums"), QStringLiteral("patch-check")},
      {QStringLiteral("Enable IP to DNS name resolution (may slow down)"),
       QStringLiteral("arrow-left-right")},
      {QStringLiteral("Enable MAC to vendor ID resolution"), QStringLiteral("cpu")},
      {QStringLiteral("Keep usernames and passwords private"), QStringLiteral("shield-lock")},
      {QStringLiteral("Enable HTTP/2 Detection"), QStringLiteral("lightning")},
  };
  static QMap<QString, QIcon> icons;
  QIcon& icon = icons[label];
  if (icon.isNull()) icon = QIcon(":/" + names.value(label, QStringLiteral("sliders")) + ".svg");
  return icon;
}

}  // namespace

OptionRow::OptionRow(const QEVDependencies::AnalyzerToggleSpec& option,
                     QEVSettings::PreferencesStore& store, QWidget* parent)
    : QWidget(parent), switch_(new SwitchButton(this)) {
  const QString label = QString::fromStdString(option.labelKey);
  auto* icon = new QLabel(this);
  icon->setFixedWidth(kIconColumn);
  icon->setAlignment(Qt::AlignCenter);
  icon->setPixmap(iconOf(label).pixmap(kIcon, devicePixelRatio()));
  auto* text = new QLabel(label, this);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 4, 8, 4);
  layout->addWidget(icon);
  layout->addWidget(text, 1);
  layout->addWidget(switch_);

  const auto read = [key = option.defaultsKey, fallback = option.defaultValue, &store] {
    return store.find(key) ? store.boolForKey(key) : fallback;
  };
  switch_->setChecked(read());
  switch_->setAccessibleName(label);
  switch_->setToolTip(label);
  connect(switch_, &QAbstractButton::clicked, this,
          [key = option.defaultsKey, &store](bool isOn) { store.setBool(isOn, key); });
  stored_ = store.observe(option.defaultsKey,
                          [this, read](std::string_view) { switch_->setChecked(read()); });
}

void OptionRow::enterEvent(QEnterEvent* event) {
  QWidget::enterEvent(event);
  update();
}

void OptionRow::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  update();
}

void OptionRow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
    switch_->click();
}

void OptionRow::paintEvent(QPaintEvent* /*event*/) {
  if (!underMouse()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor tint = palette().color(QPalette::WindowText);
  tint.setAlpha(kTint);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tint);
  painter.drawRoundedRect(rect(), kCornerRadius, kCornerRadius);
}

}  // namespace twin
