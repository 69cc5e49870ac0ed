// SPDX-License-Identifier: MIT
#pragma once

#include "analyzers/AnalyzerSettingDetailsViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// An analyzer in the list, in the accent colour while it is selected.
struct AnalyzertSettingRowView {
  viewkit::ObservedObject<AnalyzerSettingDetailsViewModel> model;

  viewkit::View body() const;
};

}  // namespace QEVSettings
