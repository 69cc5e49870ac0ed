// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/ErrorState.hpp"
#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/SettingWriter.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "analyzers/ports/PortRows.hpp"
#include "viewkit/Binding.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace QEVSettings {

// Carries the user's actions out on the protocols of one analyzer. After every change the running
// analyzer is told, the whole list is stored, and two notifications are posted. An error is shown
// on its row and ends the action.
//
// From `load` to `flush` the rows follow the stored list: they show what another window or process
// stores, and every action begins with the list as it is stored then. Writes of an action itself
// are followed when the action is over.
class PortsEditing {
public:
  using Row = PortRow;
  using Rows = PortRows;

  // Lives from `load` to `flush`.
  struct Session {
    // The stored value that the rows were last brought up to date with.
    std::optional<PreferenceValue> followed;
    bool isActing = false;
    Subscription storedListChanged;
    Subscription listWritten;
  };

  // State that the view keeps.
  struct ViewState {
    viewkit::Binding<Rows> rows;
    viewkit::Binding<std::shared_ptr<Session>> session;
    // The error of the last reset as a whole.
    viewkit::Binding<QEVDependencies::ErrorState> resetError;
    // Whether an administrator has locked the list. No action changes it then.
    viewkit::Binding<bool> isManaged;
  };

  // The store outlives the editing. Without a controller its calls are left out, and all else is
  // done. A writer tells of lists that the analyzer refused; it may be null.
  PortsEditing(QEVDependencies::AnalyzerPortsSpec ports,
               std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller,
               PreferencesStore& defaults, std::shared_ptr<SettingWriter> writer, ViewState state);

  void load() const;
  void pickName(const Row& row, const std::string& name) const;
  void pickSource(const Row& row, std::int64_t source) const;
  // Validates the typed ports of the row, registers them with the analyzer and stores them.
  void commitPorts(const Row& row) const;
  // Brings the stored ports of the row back.
  void revertPorts(const Row& row) const;
  // Brings the factory list back.
  void reset() const;
  // Commits the texts that are not committed yet. Until the next `load` no action does anything.
  void flush() const;

private:
  using Protocol = std::shared_ptr<QEVDependencies::QEVNetworkProtocol>;

  QEVModels::AnalyzerPortsStore store() const;
  void follow() const;
  void showRefusal() const;
  bool isManaged() const;
  void markManaged(const Row& row) const;
  void bringUpToDate(Session& session) const;
  void act(const std::function<void()>& steps) const;
  void actOn(const Row& row, const std::function<void()>& steps) const;
  void resetRows() const;
  Protocol factoryRecord(const std::string& name) const;
  void replace(const Protocol& old, const Protocol& current,
               QEVDependencies::QEVNetworkProtocolProperty changed) const;
  void saveAndNotify() const;

  QEVDependencies::AnalyzerPortsSpec ports_;
  std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller_;
  PreferencesStore* defaults_;
  std::shared_ptr<SettingWriter> writer_;
  ViewState state_;
};

}  // namespace QEVSettings
