// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <QComboBox>
#include <QWidget>

namespace twin {

// The appearance, the time zone and the settings of updates.
class GeneralPage final : public QWidget {
public:
  // The store outlives the page.
  explicit GeneralPage(QEVSettings::PreferencesStore& store);

  QComboBox& timeZones() const { return *timeZones_; }

private:
  QWidget* appearances();
  QWidget* timeZoneRow();

  QEVSettings::PreferencesStore& store_;
  QComboBox* timeZones_;
};

}  // namespace twin
