// SPDX-License-Identifier: MIT
#include "changes/AnalyzerPorts.hpp"

#include "QEVDependencies/QEVPluginPreferencesProtocol.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVModels/QEVPortsController.hpp"
#include "analyzers/AnalyzerError.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace QEVSettings {

using QEVDependencies::ErrorState;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;
using QEVDependencies::QEVNetworkProtocolProperty;
using QEVDependencies::QEVPluginPreferencesProtocol;
using QEVDependencies::QEVPortsPreferencesProtocol;

namespace {

using Protocol = std::shared_ptr<QEVNetworkProtocol>;

// One accepted call of the controller.
struct Replacement {
  Protocol old;
  Protocol current;
  QEVNetworkProtocolProperty changed;
};

Protocol snapshot(const QEVNetworkProtocol& record) {
  return std::make_shared<QEVNetworkProtocol>(foundation::UUID::random(), record.protocolName.get(),
                                              record.protocolPorts.get(),
                                              record.sourceProtocol.get(), "", "", 0);
}

auto meaningOf(const QEVNetworkProtocol& record) {
  return std::tuple(record.protocolName.get(), record.protocolPorts.get(),
                    record.sourceProtocol.get());
}

// The record of `list` that `wanted` takes the place of, taken out of the list.
Protocol takeMatch(QEVNetworkProtocolList& list, const QEVNetworkProtocol& wanted) {
  auto found = std::ranges::find_if(
      list, [&](const Protocol& each) { return each && each->id() == wanted.id(); });
  if (found == list.end()) {
    found = std::ranges::find_if(list, [&](const Protocol& each) {
      return each && each->protocolName.get() == wanted.protocolName.get();
    });
  }
  return found == list.end() ? nullptr : std::exchange(*found, nullptr);
}

// Gives the record the member of another one. Returns whether that changed it.
bool take(QEVNetworkProtocolProperty member, const QEVNetworkProtocol& from,
          QEVNetworkProtocol& record) {
  const auto assign = [](auto& to, const auto& value) {
    if (to.get() == value.get()) return false;
    to = value.get();
    return true;
  };
  switch (member) {
    case QEVNetworkProtocolProperty::protocolName:
      return assign(record.protocolName, from.protocolName);
    case QEVNetworkProtocolProperty::protocolPorts:
      return assign(record.protocolPorts, from.protocolPorts);
    case QEVNetworkProtocolProperty::sourceProtocol:
      return assign(record.sourceProtocol, from.sourceProtocol);
  }
  return false;
}

std::optional<ErrorState> registerRecord(QEVPortsPreferencesProtocol& controller,
                                         const QEVNetworkProtocol& before,
                                         const QEVNetworkProtocol& after,
                                         std::vector<Replacement>& done) {
  auto copy = before.copied();
  if (!copy) return std::nullopt;
  const Protocol record = *std::move(copy);
  record->setPortController(QEVModels::QEVPortsController::sharedPortsController());
  for (const auto member :
       {QEVNetworkProtocolProperty::protocolName, QEVNetworkProtocolProperty::protocolPorts,
        QEVNetworkProtocolProperty::sourceProtocol}) {
    const Protocol old = snapshot(*record);
    if (!take(member, after, *record)) continue;
    auto failure = failureOf([&] { controller.replaceProtoocol(old, record, member); });
    if (failure) return failure;
    record->reportRegistered(member);
    done.push_back({.old = old, .current = snapshot(*record), .changed = member});
  }
  return std::nullopt;
}

}  // namespace

std::optional<AnalyzerPorts> analyzerPortsOf(std::string_view key) {
  for (const auto& plugIn : *QEVModels::QEVPlugInsController::sharedManager().snapshot()) {
    const auto object = plugIn.plugInPreferencesInstance.lock();
    const auto preferences = std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(object);
    std::optional<QEVDependencies::AnalyzerSettingsConfig> config;
    if (preferences) failureOf([&] { config = preferences->analyzerSettingsConfig(); });
    if (!config || !config->ports || config->ports->networkProtocolKey != key) continue;
    return AnalyzerPorts{
        .spec = *std::move(config->ports),
        .controller = std::dynamic_pointer_cast<QEVPortsPreferencesProtocol>(object)};
  }
  return std::nullopt;
}

std::optional<RefusedRecord> registerList(QEVPortsPreferencesProtocol& controller,
                                          const QEVNetworkProtocolList& before,
                                          const QEVNetworkProtocolList& after) {
  QEVNetworkProtocolList unmatched = before;
  std::vector<Replacement> done;
  for (const Protocol& record : after) {
    const Protocol old = takeMatch(unmatched, *record);
    if (!old) continue;
    const auto failure = registerRecord(controller, *old, *record, done);
    if (!failure) continue;
    while (!done.empty()) {
      const auto [former, current, changed] = std::move(done.back());
      done.pop_back();
      failureOf([&] { controller.replaceProtoocol(current, former, changed); });
    }
    return RefusedRecord{.record = old->id(), .state = *failure};
  }
  return std::nullopt;
}

bool haveSameRecords(const QEVNetworkProtocolList& a, const QEVNetworkProtocolList& b) {
  return std::ranges::equal(
      a, b, [](const Protocol& x, const Protocol& y) { return meaningOf(*x) == meaningOf(*y); });
}

}  // namespace QEVSettings
