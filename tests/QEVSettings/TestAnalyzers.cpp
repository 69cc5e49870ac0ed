// SPDX-License-Identifier: MIT
#include "TestAnalyzers.hpp"

#include "QEVModels/QEVPlugInsController.hpp"

#include <array>
#include <utility>

namespace QEVSettings {

using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolProperty;
using QEVModels::QEVPlugInsController;

namespace {

std::string described(const QEVNetworkProtocol& protocol) {
  return protocol.protocolName.get() + " " + protocol.protocolPorts.get() + " " +
         std::to_string(protocol.sourceProtocol.get());
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
  journal_.push_back(reset ? "set default settings" : "leave default settings");
  if (refuseDefaults) refuseDefaults();
}

LoadedPlugIns::~LoadedPlugIns() {
  for (const auto& id : loaded_) QEVPlugInsController::sharedManager().unregisterPlugIn(id);
}

void LoadedPlugIns::load(const std::string& title,
                         std::shared_ptr<QEVDependencies::QEVPreferencesObject> preferences) {
  loaded_.push_back(foundation::UUID::random());
  QEVPlugInsController::sharedManager().registerPlugIn(
      {.id = loaded_.back(),
       .plugInTitle = title,
       .plugInDescription = "\n  What " + title + " is \n",
       .plugInAuthor = "its author",
       .plugInVersion = "1.2",
       .plugInPreferencesInstance = std::move(preferences)});
}

std::shared_ptr<QEVNetworkProtocol> protocol(const std::string& name, const std::string& ports,
                                             std::int64_t source) {
  return std::make_shared<QEVNetworkProtocol>(foundation::UUID::random(), name, ports, source,
                                              std::nullopt, std::nullopt, std::nullopt);
}

}  // namespace QEVSettings
