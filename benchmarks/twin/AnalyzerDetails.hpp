#pragma once

#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <QWidget>

namespace twin {

// All about one analyzer: what it is, its options and its ports. Analyzers have different ones, so
// that each is shown by a widget of its own.
class AnalyzerDetails final : public QWidget {
public:
  // The store outlives the details.
  AnalyzerDetails(const QEVDependencies::QEVPlugInStructure& analyzer,
                  QEVSettings::PreferencesStore& store);
};

}  // namespace twin
