// SPDX-License-Identifier: MIT
#include "GeneralPage.hpp"

#include "AppearanceButton.hpp"
#include "OptionRow.hpp"
#include "QEVSettings/general/QEVTimeZones.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "Section.hpp"
#include "sparkle/SPUUpdater.hpp"

#include <QHBoxLayout>
#include <QLabel>

#include <string>

namespace twin {

using QEVDependencies::AnalyzerToggleSpec;
using sparkle::SPUUpdater;

GeneralPage::GeneralPage(QEVSettings::PreferencesStore& store)
    : store_(store), timeZones_(new QComboBox(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(sectionHeader(QStringLiteral("APPEARANCE"), this));
  layout->addWidget(appearances());
  layout->addWidget(sectionLine(this));
  layout->addWidget(sectionHeader(QStringLiteral("TIME ZONE"), this));
  layout->addWidget(timeZoneRow());
  layout->addWidget(sectionLine(this));
  layout->addWidget(sectionHeader(QStringLiteral("UPDATES"), this));
  const AnalyzerToggleSpec updates[] = {
      {.id = "checks",
       .defaultsKey = std::string(SPUUpdater::kAutomaticallyChecksKey),
       .labelKey = "Automatically check for updates"},
      {.id = "downloads",
       .defaultsKey = std::string(SPUUpdater::kAutomaticallyDownloadsKey),
       .labelKey = "Automatically download updates"},
      {.id = "profile",
       .defaultsKey = std::string(SPUUpdater::kSendsSystemProfileKey),
       .labelKey = "Include anonymous system profile"},
  };
  for (const AnalyzerToggleSpec& each : updates)
    layout->addWidget(new OptionRow(each, store_, this));
  layout->addStretch(1);
}

QWidget* GeneralPage::appearances() {
  auto* row = new QWidget(this);
  auto* light = new AppearanceButton(QStringLiteral("Light"), QColor(0xE8E8E8), Qt::white, row);
  auto* dark = new AppearanceButton(QStringLiteral("Dark"), QColor(0x303030), Qt::black, row);
  auto* automatic = new AppearanceButton(QStringLiteral("Auto"), QColor(0x909090), Qt::gray, row);
  automatic->setChecked(store_.boolForKey(QEVSettings::kAppearanceUseSystem.name));
  connect(automatic, &QAbstractButton::toggled, this,
          [this](bool isOn) { store_.setBool(isOn, QEVSettings::kAppearanceUseSystem.name); });
  auto* layout = new QHBoxLayout(row);
  for (AppearanceButton* button : {light, dark, automatic}) layout->addWidget(button);
  return row;
}

QWidget* GeneralPage::timeZoneRow() {
  for (const std::string& name : QEVSettings::QEVTimeZones::localizedTimeZoneNames()) {
    timeZones_->addItem(QString::fromStdString(name));
  }
  connect(timeZones_, &QComboBox::textActivated, this, [this](const QString& name) {
    store_.setObject(name.toStdString(), QEVSettings::kPrefTimezoneString.name);
  });
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->addWidget(new QLabel(QStringLiteral("Packet time zone"), row), 1);
  layout->addWidget(timeZones_);
  return row;
}

}  // namespace twin
