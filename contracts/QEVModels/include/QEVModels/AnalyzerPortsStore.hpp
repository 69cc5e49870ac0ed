#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVModels/PortValidationResult.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <string>

namespace QEVModels {

// One analyzer's list of protocols in the preferences store: raw bytes that hold a JSON array with
// an object for each record. Main thread; none of its operations fails.
//
//     AnalyzerPortsStore store(spec.networkProtocolKey, defaults);
//     const auto list = store.decode(spec.defaultPorts);
//
// The members of a record are those that QEVNetworkProtocol encodes. What a record brings along
// besides them is written back with it.
class AnalyzerPortsStore {
public:
  // The store must live as long as this object.
  AnalyzerPortsStore(std::string key, QEVSettings::PreferencesStore& defaults);

  // The records of the stored list that can be read, or the fallback when nothing usable is stored:
  // no value, one that is no raw bytes, bytes that are no JSON array, or an array of elements none
  // of which is a protocol record. An empty array is a list. Reads only, so what could not be used
  // stays as it is.
  QEVDependencies::QEVNetworkProtocolList decode(
      const QEVDependencies::QEVNetworkProtocolList& fallback) const;

  // Stores the list in place of what is stored.
  //
  // Of a record that reports to a ports controller, the last registered name, ports and source are
  // stored: what is being typed, and what was refused, is not. Of any other record its own are
  // stored, the ports in the validator's form, or the last registered ones where nothing valid is
  // left of them. What nobody changed is stored as it came.
  //
  // Elements of the stored array that are no protocol records stay in it, each at its place or, in
  // a shorter list, at the end.
  void encode(const QEVDependencies::QEVNetworkProtocolList& list) const;

  // What the validator makes of the record's ports; the record stays as it is.
  PortValidationResult validatedReporting(
      const QEVDependencies::QEVNetworkProtocol& protocol) const;

private:
  std::string key_;
  QEVSettings::PreferencesStore& defaults_;
};

}  // namespace QEVModels
