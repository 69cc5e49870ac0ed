// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerSettingDetailsProvider.hpp"

namespace QEVSettings {

std::shared_ptr<AnalyzerSettingDetailsViewModel> AnalyzerSettingDetailsProvider::detailsViewModel(
    const QEVDependencies::QEVPlugInStructure& plugin) {
  auto& model = analyzerDetailsViewModels_[plugin.id];
  if (!model) model = std::make_shared<AnalyzerSettingDetailsViewModel>(plugin);
  return model;
}

}  // namespace QEVSettings
