// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/ErrorState.hpp"
#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "foundation/UUID.hpp"

#include <memory>
#include <optional>
#include <string_view>

namespace QEVSettings {

// The ports part of a loaded analyzer, and the object that its running analyzer listens with; null
// when the analyzer has none.
struct AnalyzerPorts {
  QEVDependencies::AnalyzerPortsSpec spec;
  std::shared_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller;
};

// The loaded analyzer whose list of protocols is stored under the key.
std::optional<AnalyzerPorts> analyzerPortsOf(std::string_view key);

// What an analyzer refused, and the record that it refused.
struct RefusedRecord {
  foundation::UUID record;
  QEVDependencies::ErrorState state;
};

// Registers the records of `after` with the running analyzer in place of those of `before`, one
// member at a time, with a snapshot as the old record. When the analyzer refuses one, those before
// it are taken back and the refusal is returned. A record is matched by its id, or else by its
// name; a record that only one of the lists has is not registered.
std::optional<RefusedRecord> registerList(QEVDependencies::QEVPortsPreferencesProtocol& controller,
                                          const QEVDependencies::QEVNetworkProtocolList& before,
                                          const QEVDependencies::QEVNetworkProtocolList& after);

// Whether the two lists agree in the names, ports and sources of their records.
bool haveSameRecords(const QEVDependencies::QEVNetworkProtocolList& a,
                     const QEVDependencies::QEVNetworkProtocolList& b);

}  // namespace QEVSettings
