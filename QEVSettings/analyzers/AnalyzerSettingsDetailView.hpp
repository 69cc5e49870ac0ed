// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerSettingsConfig.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "analyzers/AnalyzerSettingDetailsViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <memory>
#include <optional>
#include <string>

namespace QEVSettings {

// The detail pane of the selected analyzer: its name and description, its options, its ports.
struct AnalyzerSettingsDetailView {
  viewkit::ObservedObject<AnalyzerSettingDetailsViewModel> model;

  viewkit::View body() const;

private:
  std::string subtitle() const;
  std::optional<QEVDependencies::AnalyzerSettingsConfig> config() const;
  std::shared_ptr<QEVDependencies::QEVPortsPreferencesProtocol> portsController() const;

  viewkit::View header() const;
  viewkit::View sections() const;
};

}  // namespace QEVSettings
