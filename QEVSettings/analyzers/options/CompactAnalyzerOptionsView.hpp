// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerSettingsConfig.hpp"
#include "viewkit/View.hpp"

#include <vector>

namespace QEVSettings {

// The options of one analyzer: its packet colour, its switches, and the controls that it draws
// itself. Values are read from the preferences store and written to it at once.
struct CompactAnalyzerOptionsView {
  QEVDependencies::AnalyzerSettingsConfig config;

  viewkit::View body() const;

private:
  std::vector<QEVDependencies::AnalyzerToggleSpec> sortedToggles() const;
  viewkit::View extraContent() const;
};

}  // namespace QEVSettings
