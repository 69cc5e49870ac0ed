// SPDX-License-Identifier: MIT
#include "TestAnalyzers.hpp"

#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "foundation/NotificationCenter.hpp"

namespace QEVSettings {

using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolProperty;
using QEVModels::QEVPlugInsController;

namespace {

std::string described(const QEVNetworkProtocol& protocol) {
  return protocol.protocolName.get() + " " + protocol.protocolPorts.get() + " " +
         std::to_string(protocol.sourceProtocol.get());
}

Subscription noteNotifications(Journal& journal, int number) {
  return foundation::NotificationCenter::defaultCenter().observe(
      rawValue(static_cast<QEVDependencies::QEVProtocolKonstants>(number)),
      [&journal, number](std::string_view) {
        journal.push_back("notify " + std::to_string(number));
      });
}

}  // namespace

void PortsPreferences::replaceProtoocol(const std::shared_ptr<QEVNetworkProtocol>& old,
                                        const std::shared_ptr<QEVNetworkProtocol>& current,
                                        QEVNetworkProtocolProperty changed) {
  constexpr std::array properties{"name", "ports", "source"};
  journal_.push_back("replace " + described(*old) + " by " + described(*current) + ", " +
                     properties.at(static_cast<std::size_t>(changed)));
  if (refuse) refuse();
}

void PortsPreferences::setDefaultSettings(bool reset) {
  journal_.emplace_back(reset ? "set default settings" : "leave default settings");
  if (refuseDefaults) refuseDefaults();
}

PortsWatch::PortsWatch(Journal& journal, PreferencesStore& store, std::string_view key)
    : subscriptions_{
          store.observe(key, [&journal](std::string_view) { journal.emplace_back("store"); }),
          noteNotifications(journal, 9), noteNotifications(journal, 3)} {}

LoadedPlugIns::~LoadedPlugIns() {
  for (const auto& id : loaded_) QEVPlugInsController::sharedManager().unregisterPlugIn(id);
}

void LoadedPlugIns::load(
    const std::string& title,
    const std::shared_ptr<QEVDependencies::QEVPreferencesObject>& preferences) {
  loaded_.push_back(foundation::UUID::random());
  QEVPlugInsController::sharedManager().registerPlugIn(
      {.id = loaded_.back(),
       .plugInTitle = title,
       .plugInDescription = "\n  What " + title + " is \n",
       .plugInAuthor = "its author",
       .plugInVersion = "1.2",
       .plugInPreferencesInstance = preferences});
}

std::shared_ptr<QEVNetworkProtocol> protocol(const std::string& name, const std::string& ports,
                                             std::int64_t source) {
  return std::make_shared<QEVNetworkProtocol>(foundation::UUID::random(), name, ports, source,
                                              std::nullopt, std::nullopt, std::nullopt);
}

}  // namespace QEVSettings
