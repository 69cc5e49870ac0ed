// SPDX-License-Identifier: MIT
#include "analyzers/ports/PortsEditing.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVDependencies/QEVError.hpp"
#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "analyzers/AnalyzerError.hpp"
#include "foundation/NotificationCenter.hpp"
#include "foundation/ScopedFlag.hpp"

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
  return std::make_shared<QEVNetworkProtocol>(
      foundation::UUID::random(), protocol.lastRegisteredName(), protocol.lastRegisteredPorts(),
      protocol.lastRegisteredSource(), "", "", 0);
}

std::string joinedMessages(const std::vector<PortCorrection>& corrections) {
  std::string text;
  for (const PortCorrection& correction : corrections) {
    if (!text.empty()) text += '\n';
    text += correction.message();
  }
  return text;
}

// Takes the steps of a change and shows an exception on the row. Returns whether there was none.
bool attempt(const Protocol& protocol, const std::function<void()>& steps) {
  const auto failure = failureOf(steps);
  if (failure) showErrorState(*failure, *protocol);
  return !failure;
}

}  // namespace

PortsEditing::PortsEditing(QEVDependencies::AnalyzerPortsSpec ports,
                           std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller,
                           PreferencesStore& defaults, std::shared_ptr<SettingWriter> writer,
                           ViewState state)
    : ports_(std::move(ports)),
      controller_(std::move(controller)),
      defaults_(&defaults),
      writer_(std::move(writer)),
      state_(std::move(state)) {}

void PortsEditing::load() const {
  state_.resetError.set({});
  const auto session = std::make_shared<Session>();
  state_.isManaged.set(isManaged());
  session->followed = defaults_->objectForKey(ports_.networkProtocolKey);
  state_.rows.set(portRows(store().decode(ports_.defaultPorts)));
  session->storedListChanged = defaults_->observe(
      ports_.networkProtocolKey, [self = *this](std::string_view) { self.follow(); });
  state_.session.set(session);
  if (!writer_) return;
  session->listWritten = writer_->observe(ports_.networkProtocolKey,
                                          [self = *this](std::string_view) { self.showRefusal(); });
  showRefusal();
}

void PortsEditing::pickName(const Row& row, const std::string& name) const {
  if (isManaged()) return;
  actOn(row, [&] {
    const Protocol& protocol = row->model();
    const Protocol old = snapshot(*protocol);
    protocol->protocolName = name;
    if (attempt(protocol,
                [&] { replace(old, protocol, QEVNetworkProtocolProperty::protocolName); }))
      saveAndNotify();
  });
}

void PortsEditing::pickSource(const Row& row, std::int64_t source) const {
  if (isManaged()) return;
  actOn(row, [&] {
    const Protocol& protocol = row->model();
    const Protocol old = snapshot(*protocol);
    protocol->sourceProtocol = source;
    if (attempt(protocol,
                [&] { replace(old, protocol, QEVNetworkProtocolProperty::sourceProtocol); }))
      saveAndNotify();
  });
}

void PortsEditing::commitPorts(const Row& row) const {
  if (isManaged()) return markManaged(row);
  actOn(row, [&] {
    const Protocol& protocol = row->model();
    PortValidationResult result;
    const bool done = attempt(protocol, [&] {
      const Protocol old = snapshot(*protocol);
      result = store().validatedReporting(*protocol);
      if (result.ports.empty()) throw QEVError::noUsablePorts;
      protocol->protocolPorts = result.ports;
      replace(old, protocol, QEVNetworkProtocolProperty::protocolPorts);
    });
    if (!done) return;
    saveAndNotify();
    showErrorState({.errorText = joinedMessages(result.corrections), .errorDetails = std::nullopt},
                   *protocol);
  });
}

// The record was brought up to date, so its last registered ports are the stored ones.
void PortsEditing::revertPorts(const Row& row) const {
  actOn(row, [&] { row->model()->protocolPorts = row->model()->lastRegisteredPorts(); });
}

void PortsEditing::reset() const {
  if (isManaged()) return;
  act([this] {
    resetRows();
    std::optional<ErrorState> failure;
    if (const auto controller = controller_.lock())
      failure = failureOf([&] { controller->setDefaultSettings(true); });
    state_.resetError.set(failure.value_or(ErrorState{}));
    state_.rows.set(portRows(ports_.defaultPorts));
    saveAndNotify();
  });
}

void PortsEditing::resetRows() const {
  const auto controller = controller_.lock();
  for (const Row& row : state_.rows.get()) {
    const Protocol& protocol = row->model();
    if (protocol->protocolPorts.get().empty()) continue;
    const Protocol factory = factoryRecord(protocol->protocolName);
    if (!factory || !controller) continue;
    attempt(protocol, [&] {
      controller->replaceProtoocol(protocol, factory, QEVNetworkProtocolProperty::protocolPorts);
    });
  }
}

void PortsEditing::flush() const {
  if (isManaged()) return state_.session.set(nullptr);
  act([this] {
    const QEVNetworkProtocolList stored = store().decode(ports_.defaultPorts);
    const Rows rows = state_.rows.get();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool isStored = i < stored.size() &&
                            stored[i]->protocolPorts.get() == rows[i]->model()->protocolPorts.get();
      if (!isStored) commitPorts(rows[i]);
    }
    state_.session.set(nullptr);
  });
}

void PortsEditing::follow() const {
  const auto session = state_.session.get();
  if (session && state_.isManaged.get() != isManaged()) state_.isManaged.set(isManaged());
  if (session && !session->isActing) bringUpToDate(*session);
}

// A list that was written from outside of the editor, for example by an undo, was refused.
void PortsEditing::showRefusal() const {
  if (!state_.session.get()) return;
  const auto refusal = writer_->takeRefusal(ports_.networkProtocolKey);
  if (!refusal) return;
  if (!refusal->record) return state_.resetError.set(refusal->state);
  for (const Row& row : state_.rows.get()) {
    if (row->model()->id() == *refusal->record) showErrorState(refusal->state, *row->model());
  }
}

bool PortsEditing::isManaged() const { return defaults_->isLocked(ports_.networkProtocolKey); }

// A text that was being typed when the list was locked stays on the screen.
void PortsEditing::markManaged(const Row& row) const {
  const Protocol& protocol = row->model();
  if (protocol->protocolPorts.get() == protocol->lastRegisteredPorts()) return;
  showErrorState({.errorText = QEVCommonTools::managedText(), .errorDetails = std::nullopt},
                 *protocol);
}

void PortsEditing::bringUpToDate(Session& session) const {
  auto stored = defaults_->objectForKey(ports_.networkProtocolKey);
  if (stored == session.followed) return;
  session.followed = std::move(stored);
  state_.rows.set(portRows(state_.rows.get(), store().decode(ports_.defaultPorts)));
}

// Does nothing between `flush` and the next `load`.
void PortsEditing::act(const std::function<void()>& steps) const {
  const auto session = state_.session.get();
  if (!session) return;
  follow();
  {
    const foundation::ScopedFlag acting(session->isActing, true);
    steps();
  }
  follow();
}

// Does nothing for a row that the stored list no longer has.
void PortsEditing::actOn(const Row& row, const std::function<void()>& steps) const {
  act([&] {
    const Rows rows = state_.rows.get();
    if (std::ranges::find(rows, row) != rows.end()) steps();
  });
}

QEVModels::AnalyzerPortsStore PortsEditing::store() const {
  return {ports_.networkProtocolKey, *defaults_};
}

PortsEditing::Protocol PortsEditing::factoryRecord(const std::string& name) const {
  const auto found = std::ranges::find_if(
      ports_.defaultPorts, [&](const Protocol& each) { return each->protocolName.get() == name; });
  return found != ports_.defaultPorts.end() ? *found : nullptr;
}

void PortsEditing::replace(const Protocol& old, const Protocol& current,
                           QEVNetworkProtocolProperty changed) const {
  if (const auto controller = controller_.lock())
    controller->replaceProtoocol(old, current, changed);
  // Another writer may have stored a list meanwhile.
  if (const auto session = state_.session.get()) bringUpToDate(*session);
  current->reportRegistered(changed);
}

void PortsEditing::saveAndNotify() const {
  QEVNetworkProtocolList list;
  for (const Row& row : state_.rows.get()) list.push_back(row->model());
  store().encode(list);
  auto& center = foundation::NotificationCenter::defaultCenter();
  center.post(rawValue(QEVProtocolKonstants::protocolListDidChange));
  center.post(rawValue(QEVProtocolKonstants::portsDidChange));
}

}  // namespace QEVSettings
