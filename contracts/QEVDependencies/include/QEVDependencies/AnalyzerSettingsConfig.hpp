#pragma once

#include "QEVDependencies/AnalyzerColorSpec.hpp"
#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/AnalyzerToggleSpec.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <optional>
#include <vector>

namespace QEVDependencies {

// What one analyzer has to configure.
struct AnalyzerSettingsConfig {
  // In the plug-in's own order.
  std::vector<AnalyzerToggleSpec> toggles = {};
  // Present when packets of the analyzer's protocol can be coloured.
  std::optional<AnalyzerColorSpec> color = std::nullopt;
  // Present when the analyzer goes by ports.
  std::optional<AnalyzerPortsSpec> ports = std::nullopt;
  // Makes the controls that the plug-in draws itself, each time they are shown; empty when it has
  // none.
  std::function<viewkit::View()> extraContent = {};
};

}  // namespace QEVDependencies
