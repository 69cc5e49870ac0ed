// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"

#include <memory>
#include <optional>
#include <string>

namespace zorvantine {

// The ports that a running analyzer watches: those of the protocols that the store lists for it, or
// of its factory list while the store has none.
//
// It reads its list again whenever a notification says that lists have changed. Main thread.
class RunningAnalyzer {
public:
  // The store outlives the analyzer.
  RunningAnalyzer(std::string protocolsKey, QEVDependencies::QEVNetworkProtocolList factoryList,
                  QEVSettings::PreferencesStore& store);

  const QEVDependencies::QEVNetworkProtocolList& protocols() const { return protocols_; }
  const QEVDependencies::QEVNetworkProtocolList& factoryList() const { return factoryList_; }

  // Watches `current` in place of the record that equals `old`, or in addition when none equals it.
  void replace(const QEVDependencies::QEVNetworkProtocol& old,
               const std::shared_ptr<QEVDependencies::QEVNetworkProtocol>& current);
  void returnToFactoryList();

private:
  void readList();

  std::string protocolsKey_;
  QEVDependencies::QEVNetworkProtocolList factoryList_;
  QEVSettings::PreferencesStore& store_;
  QEVDependencies::QEVNetworkProtocolList protocols_;
  std::optional<QEVSettings::PreferenceValue> readFrom_;
  foundation::Subscription listChanged_;
  foundation::Subscription portsChanged_;
};

}  // namespace zorvantine
