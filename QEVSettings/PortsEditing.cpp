#include "PortsEditing.hpp"

#include "QEVDependencies/QEVError.hpp"
#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "QEVModels/QEVPortsController.hpp"
#include "foundation/NotificationCenter.hpp"
#include "viewkit/Animation.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace QEVSettings {

using QEVDependencies::ErrorState;
using QEVDependencies::QEVError;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;
using QEVDependencies::QEVNetworkProtocolProperty;
using QEVDependencies::QEVProtocolKonstants;
using QEVModels::PortCorrection;
using QEVModels::PortValidationResult;

namespace {

using Protocol = std::shared_ptr<QEVNetworkProtocol>;

// The record as the running analyzer knows it.
Protocol snapshot(const QEVNetworkProtocol& protocol) {
  return std::make_shared<QEVNetworkProtocol>(foundation::UUID::random(), protocol.lastRegisteredName(),
                                              protocol.lastRegisteredPorts(), protocol.lastRegisteredSource(), "", "",
                                              0);
}

// A copy to be edited; a record that cannot be copied is edited itself.
PortsEditing::Row makeRow(const Protocol& source) {
  const auto copy = source->copied();
  const Protocol protocol = copy ? *copy : source;
  protocol->setPortController(QEVModels::QEVPortsController::sharedPortsController());
  auto row = std::make_shared<QEVModels::ModelWrapper<QEVNetworkProtocol>>(protocol);
  protocol->setupBinding();
  return row;
}

void show(const ErrorState& state, const Protocol& protocol) {
  viewkit::withAnimation([&] {
    protocol->errorModel()->objectWillChange().announce();
    protocol->errorModel()->errorState = state;
  });
}

void showError(std::optional<QEVError> error, const Protocol& protocol) {
  show({.errorText = "Error", .errorDetails = error}, protocol);
}

std::string joinedMessages(const std::vector<PortCorrection>& corrections) {
  std::string text;
  for (const PortCorrection& correction : corrections) {
    if (!text.empty()) text += '\n';
    text += correction.message();
  }
  return text;
}

// Takes the steps of a change, and says on the row why they ended early. Whether they did not.
bool attempt(const Protocol& protocol, const std::function<void()>& steps) {
  try {
    steps();
    return true;
  } catch (const QEVError& error) {
    showError(error, protocol);
  } catch (...) {
    showError(std::nullopt, protocol);
  }
  return false;
}

}  // namespace

PortsEditing::PortsEditing(QEVDependencies::AnalyzerPortsSpec ports,
                           std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller,
                           PreferencesStore& defaults, viewkit::Binding<Rows> rows, viewkit::Binding<bool> isShown)
    : ports_(std::move(ports)),
      controller_(std::move(controller)),
      defaults_(&defaults),
      rows_(std::move(rows)),
      isShown_(std::move(isShown)) {}

void PortsEditing::load() const {
  isShown_.set(true);
  replaceRows(store().decode(ports_.defaultPorts));
}

void PortsEditing::pickName(const Row& row, const std::string& name) const {
  const Protocol& protocol = row->model();
  const Protocol old = snapshot(*protocol);
  protocol->protocolName = name;
  if (attempt(protocol, [&] { report(old, protocol, QEVNetworkProtocolProperty::protocolName); })) saveAndNotify();
}

void PortsEditing::pickSource(const Row& row, std::int64_t source) const {
  const Protocol& protocol = row->model();
  const Protocol old = snapshot(*protocol);
  protocol->sourceProtocol = source;
  if (attempt(protocol, [&] { report(old, protocol, QEVNetworkProtocolProperty::sourceProtocol); })) saveAndNotify();
}

void PortsEditing::fieldCommitted(const Row& row) const {
  if (isShown_.get()) commitPorts(row);
}

void PortsEditing::commitPorts(const Row& row) const {
  const Protocol& protocol = row->model();
  PortValidationResult result;
  const bool done = attempt(protocol, [&] {
    const Protocol old = snapshot(*protocol);
    result = store().validatedReporting(*protocol);
    if (result.ports.empty()) throw QEVError::noUsablePorts;
    protocol->protocolPorts = result.ports;
    report(old, protocol, QEVNetworkProtocolProperty::protocolPorts);
  });
  if (!done) return;
  saveAndNotify();
  show({.errorText = joinedMessages(result.corrections), .errorDetails = std::nullopt}, protocol);
}

void PortsEditing::reset() const {
  for (const Row& row : rows_.get()) {
    const Protocol& protocol = row->model();
    if (protocol->protocolPorts.get().empty()) continue;
    const Protocol factory = factoryRecord(protocol->protocolName);
    if (!factory) continue;
    attempt(protocol, [&] { report(protocol, factory, QEVNetworkProtocolProperty::protocolPorts); });
  }
  if (const auto controller = controller_.lock()) controller->setDefaultSettings(true);
  replaceRows(ports_.defaultPorts);
  saveAndNotify();
}

void PortsEditing::flush() const {
  const QEVNetworkProtocolList stored = store().decode(ports_.defaultPorts);
  const Rows rows = rows_.get();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool isStored = i < stored.size() && stored[i]->protocolPorts.get() == rows[i]->model()->protocolPorts.get();
    if (!isStored) commitPorts(rows[i]);
  }
  isShown_.set(false);
}

QEVModels::AnalyzerPortsStore PortsEditing::store() const { return {ports_.networkProtocolKey, *defaults_}; }

void PortsEditing::replaceRows(const QEVNetworkProtocolList& list) const {
  Rows rows;
  rows.reserve(list.size());
  std::ranges::transform(list, std::back_inserter(rows), makeRow);
  rows_.set(std::move(rows));
}

PortsEditing::Protocol PortsEditing::factoryRecord(const std::string& name) const {
  const auto found =
      std::ranges::find_if(ports_.defaultPorts, [&](const Protocol& each) { return each->protocolName.get() == name; });
  return found != ports_.defaultPorts.end() ? *found : nullptr;
}

void PortsEditing::report(const Protocol& old, const Protocol& current, QEVNetworkProtocolProperty changed) const {
  if (const auto controller = controller_.lock()) controller->replaceProtoocol(old, current, changed);
}

void PortsEditing::saveAndNotify() const {
  QEVNetworkProtocolList list;
  for (const Row& row : rows_.get()) list.push_back(row->model());
  store().encode(list);
  auto& center = foundation::NotificationCenter::defaultCenter();
  center.post(rawValue(QEVProtocolKonstants::protocolListDidChange));
  center.post(rawValue(QEVProtocolKonstants::portsDidChange));
}

}  // namespace QEVSettings
