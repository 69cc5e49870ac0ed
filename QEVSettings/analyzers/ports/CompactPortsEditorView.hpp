// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/AnalyzerSettingsConfig.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "analyzers/ports/PortsEditing.hpp"
#include "viewkit/Grid.hpp"
#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <memory>

namespace QEVSettings {

// The options of a port-based analyzer and, under them, the table of its protocols.
struct CompactPortsEditorView {
  QEVDependencies::AnalyzerSettingsConfig config;
  QEVDependencies::AnalyzerPortsSpec ports;
  std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller;
  // Filled whenever the view appears.
  viewkit::State<PortsEditing::Rows> rows = {};
  viewkit::State<std::shared_ptr<PortsEditing::Session>> session = {};
  viewkit::State<QEVDependencies::ErrorState> resetError = {};
  viewkit::State<bool> isManaged = {};

  viewkit::View body() const;
};

}  // namespace QEVSettings
