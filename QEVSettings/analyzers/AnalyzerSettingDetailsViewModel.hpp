// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/ViewModel.hpp"
#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "foundation/ObservableObject.hpp"

#include <utility>

namespace QEVSettings {

// One analyzer as its list row and its detail pane show it.
class AnalyzerSettingDetailsViewModel final : public QEVCommonTools::ViewModel {
public:
  explicit AnalyzerSettingDetailsViewModel(QEVDependencies::QEVPlugInStructure plugin)
      : pluginStruct(*this, std::move(plugin)) {}

  foundation::Published<QEVDependencies::QEVPlugInStructure> pluginStruct;
  // Whether the analyzer is the selected one.
  foundation::Published<bool> isActive{*this, false};
};

}  // namespace QEVSettings
