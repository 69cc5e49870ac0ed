// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerColorSpec.hpp"
#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/AnalyzerToggleSpec.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <optional>
#include <vector>

namespace QEVDependencies {

// The settings that one analyzer offers.
//
//     AnalyzerSettingsConfig config;
//     config.toggles = {{.id = "times",
//                        .defaultsKey = "com_velloquin_qev_dns_times",
//                        .labelKey = "Show response times"}};
struct AnalyzerSettingsConfig {
  // In the order of the plug-in, which is not the order on the page.
  std::vector<AnalyzerToggleSpec> toggles = {};
  // For an analyzer whose packets can be coloured.
  std::optional<AnalyzerColorSpec> color = std::nullopt;
  // For an analyzer that recognises protocols by their ports.
  std::optional<AnalyzerPortsSpec> ports = std::nullopt;
  // Returns the plug-in's own controls; called each time they are shown. Empty when it has none.
  std::function<viewkit::View()> extraContent = {};
};

}  // namespace QEVDependencies
