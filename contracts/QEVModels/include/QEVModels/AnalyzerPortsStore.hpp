// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVModels/PortValidationResult.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <optional>
#include <string>

namespace QEVModels {

// The readable records of a stored list; the fallback for a value of which
// AnalyzerPortsStore::decode returns it.
QEVDependencies::QEVNetworkProtocolList decodedProtocols(
    const std::optional<QEVSettings::PreferenceValue>& stored,
    const QEVDependencies::QEVNetworkProtocolList& fallback);

// Reads and writes the protocol list of one analyzer in the preferences store. The stored form is
// raw bytes: a JSON array with an object for each record. No operation fails. Main thread.
//
//     AnalyzerPortsStore store(spec.networkProtocolKey, defaults);
//     const auto list = store.decode(spec.defaultPorts);
//
// QEVNetworkProtocol::encode describes the members of a record. Unknown members are kept.
class AnalyzerPortsStore {
public:
  // The store must live as long as this object.
  AnalyzerPortsStore(std::string key, QEVSettings::PreferencesStore& defaults);

  // The readable records of the stored list. Returns the fallback when the value is absent, is not
  // raw bytes, is not a JSON array, or is a non-empty array without a readable record. Does not
  // change the store.
  QEVDependencies::QEVNetworkProtocolList decode(
      const QEVDependencies::QEVNetworkProtocolList& fallback) const;

  // Replaces the stored list.
  //
  // For a record with a ports controller, the last registered name, ports and source are stored,
  // and not a text that is being typed or a value that was refused. For a record without a
  // controller, its current values are stored: the ports in the validator's normal form, or the
  // last registered ports when nothing valid remains. Unchanged members keep their spelling.
  //
  // Elements of the stored array that are not protocol records are kept, at their index or, in a
  // shorter list, at the end.
  void encode(const QEVDependencies::QEVNetworkProtocolList& list) const;

  // The validator's result for the record's ports. Does not change the record.
  PortValidationResult validatedReporting(
      const QEVDependencies::QEVNetworkProtocol& protocol) const;

private:
  std::string key_;
  QEVSettings::PreferencesStore& defaults_;
};

}  // namespace QEVModels
