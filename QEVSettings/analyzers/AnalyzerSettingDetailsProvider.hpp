#pragma once

#include "QEVCommonTools/ViewModel.hpp"
#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "analyzers/AnalyzerSettingDetailsViewModel.hpp"
#include "foundation/UUID.hpp"

#include <map>
#include <memory>

namespace QEVSettings {

// Owns the models of the analyzers that were shown: one for each, made at first use and kept.
class AnalyzerSettingDetailsProvider final : public QEVCommonTools::ViewModel {
public:
  // The model that the plug-in's id stands for; what an existing one says of the plug-in stays as
  // it is.
  std::shared_ptr<AnalyzerSettingDetailsViewModel> detailsViewModel(
      const QEVDependencies::QEVPlugInStructure& plugin);

private:
  std::map<foundation::UUID, std::shared_ptr<AnalyzerSettingDetailsViewModel>>
      analyzerDetailsViewModels_;
};

}  // namespace QEVSettings
