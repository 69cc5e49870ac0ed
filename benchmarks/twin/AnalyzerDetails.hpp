// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <QWidget>

namespace twin {

// The description, options and ports of one analyzer. Each analyzer gets a widget of its own,
// because their options differ.
class AnalyzerDetails final : public QWidget {
public:
  // The store outlives the details.
  AnalyzerDetails(const QEVDependencies::QEVPlugInStructure& analyzer,
                  QEVSettings::PreferencesStore& store);
};

}  // namespace twin
