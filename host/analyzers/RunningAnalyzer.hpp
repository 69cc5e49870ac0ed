#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"

#include <memory>
#include <optional>
#include <string>

namespace zorvantine {

// An analyzer at work, as far as its ports go: it watches the protocols that the store lists for
// it, or its factory list while the store has none.
//
// It hears of a change from whoever makes it, and reads its list again when it is told that lists
// have changed, whoever changed them. Main thread.
class RunningAnalyzer {
public:
  // The store outlives the analyzer.
  RunningAnalyzer(std::string protocolsKey, QEVDependencies::QEVNetworkProtocolList factoryList,
                  QEVSettings::PreferencesStore& store);

  const QEVDependencies::QEVNetworkProtocolList& protocols() const { return protocols_; }
  const QEVDependencies::QEVNetworkProtocolList& factoryList() const { return factoryList_; }

  // From now on `current` is watched in place of what says the same as `old`, or besides the others
  // when there is none such.
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
