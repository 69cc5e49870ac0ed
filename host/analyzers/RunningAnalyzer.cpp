// SPDX-License-Identifier: MIT
#include "analyzers/RunningAnalyzer.hpp"

#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "foundation/NotificationCenter.hpp"

#include <algorithm>
#include <utility>

namespace zorvantine {

using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;
using QEVDependencies::QEVProtocolKonstants;

namespace {

// The analyzer keeps copies, because the user may be editing the settings' own record.
std::shared_ptr<QEVNetworkProtocol> copyOf(const std::shared_ptr<QEVNetworkProtocol>& protocol) {
  auto copy = protocol->copied();
  return copy ? *std::move(copy) : protocol;
}

QEVNetworkProtocolList copyOf(const QEVNetworkProtocolList& list) {
  QEVNetworkProtocolList copy;
  for (const auto& protocol : list) copy.push_back(copyOf(protocol));
  return copy;
}

}  // namespace

RunningAnalyzer::RunningAnalyzer(std::string protocolsKey, QEVNetworkProtocolList factoryList,
                                 QEVSettings::PreferencesStore& store)
    : protocolsKey_(std::move(protocolsKey)),
      factoryList_(std::move(factoryList)),
      store_(store),
      protocols_(copyOf(factoryList_)) {
  auto& center = foundation::NotificationCenter::defaultCenter();
  const auto observe = [&](QEVProtocolKonstants name) {
    return center.observe(rawValue(name), [this](std::string_view) { readList(); });
  };
  listChanged_ = observe(QEVProtocolKonstants::protocolListDidChange);
  portsChanged_ = observe(QEVProtocolKonstants::portsDidChange);
  readList();
}

void RunningAnalyzer::replace(const QEVNetworkProtocol& old,
                              const std::shared_ptr<QEVNetworkProtocol>& current) {
  const auto saysTheSame = [&](const std::shared_ptr<QEVNetworkProtocol>& watched) {
    return watched->protocolName.get() == old.protocolName.get() &&
           watched->protocolPorts.get() == old.protocolPorts.get() &&
           watched->sourceProtocol.get() == old.sourceProtocol.get();
  };
  const auto found = std::ranges::find_if(protocols_, saysTheSame);
  if (found != protocols_.end()) {
    *found = copyOf(current);
  } else {
    protocols_.push_back(copyOf(current));
  }
}

void RunningAnalyzer::returnToFactoryList() { protocols_ = copyOf(factoryList_); }

// Both notifications are posted for a change of any analyzer, so this analyzer's list is usually
// unchanged.
void RunningAnalyzer::readList() {
  auto stored = store_.objectForKey(protocolsKey_);
  if (stored == readFrom_) return;
  protocols_ = QEVModels::AnalyzerPortsStore(protocolsKey_, store_).decode(copyOf(factoryList_));
  readFrom_ = std::move(stored);
}

}  // namespace zorvantine
