// SPDX-License-Identifier: MIT
#include "TwinPage.hpp"

#include "AnalyzerList.hpp"
#include "QEVSettings/general/QEVTimeZones.hpp"
#include "SwitchButton.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

namespace twin {

namespace {

QRect placeOf(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

}  // namespace

TwinPage::TwinPage() {
  page_.setWindowTitle(QStringLiteral("Settings"));
  page_.resize(760, 552);
}

QRect TwinPage::analyzer(int row) {
  const AnalyzerList& list = page_.list();
  const QRect inList = list.visualRect(list.model()->index(row, 0));
  return inList.translated(list.viewport()->mapTo(&page_, QPoint()));
}

QRect TwinPage::details() { return placeOf(page_.details()); }

QRect TwinPage::firstSwitch() {
  for (const QAbstractButton* button : page_.details().findChildren<QAbstractButton*>()) {
    if (dynamic_cast<const SwitchButton*>(button)) return placeOf(*button);
  }
  return {};
}

QRect TwinPage::firstPorts() { return placeOf(*page_.details().findChild<QLineEdit*>()); }

QWidget& TwinPage::timeZoneWindow() {
  if (timeZones_) return *timeZones_;
  timeZones_ = std::make_unique<QWidget>();
  menu_ = new QComboBox(timeZones_.get());
  for (const std::string& name : QEVSettings::QEVTimeZones::localizedTimeZoneNames()) {
    menu_->addItem(QString::fromStdString(name));
  }
  auto* layout = new QHBoxLayout(timeZones_.get());
  layout->addWidget(new QLabel(QStringLiteral("Packet time zone")), 1);
  layout->addWidget(menu_);
  return *timeZones_;
}

QRect TwinPage::timeZoneMenu() { return placeOf(*menu_); }

}  // namespace twin
