// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/ViewModel.hpp"
#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "analyzers/AnalyzerSettingDetailsViewModel.hpp"
#include "foundation/UUID.hpp"

#include <map>
#include <memory>

namespace QEVSettings {

// Owns one model for each analyzer that was shown. A model is made at first use and kept.
class AnalyzerSettingDetailsProvider final : public QEVCommonTools::ViewModel {
public:
  // The model for the plug-in's id. An existing model keeps the plug-in that it was made with.
  std::shared_ptr<AnalyzerSettingDetailsViewModel> detailsViewModel(
      const QEVDependencies::QEVPlugInStructure& plugin);

private:
  std::map<foundation::UUID, std::shared_ptr<AnalyzerSettingDetailsViewModel>>
      analyzerDetailsViewModels_;
};

}  // namespace QEVSettings
