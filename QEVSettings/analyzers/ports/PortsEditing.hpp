#pragma once

#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/ErrorState.hpp"
#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "analyzers/ports/PortRows.hpp"
#include "viewkit/Binding.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace QEVSettings {

// What a person's actions do to the protocols of one analyzer. The whole list is stored after every
// change, the running analyzer hears of the change, and everyone else is notified. What goes wrong
// is said on the row concerned and ends the action.
//
// From the load to the flush the rows follow the stored list: what another window or process stores
// is shown, and an action begins with the list as it is stored then. The writes of an action itself
// are followed when it is over.
class PortsEditing {
public:
  using Row = PortRow;
  using Rows = PortRows;

  // What is kept from a load to the flush.
  struct Session {
    // The stored value that the rows were last brought up to date with.
    std::optional<PreferenceValue> followed;
    bool isActing = false;
    Subscription storedListChanged;
  };

  // What the view keeps for its editing.
  struct ViewState {
    viewkit::Binding<Rows> rows;
    viewkit::Binding<std::shared_ptr<Session>> session;
    // What the analyzer had to say against the last reset as a whole.
    viewkit::Binding<QEVDependencies::ErrorState> resetError;
  };

  // The store outlives the editing. Without a controller, or when it is gone, only its calls are
  // left out.
  PortsEditing(QEVDependencies::AnalyzerPortsSpec ports,
               std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller,
               PreferencesStore& defaults, ViewState state);

  void load() const;
  void pickName(const Row& row, const std::string& name) const;
  void pickSource(const Row& row, std::int64_t source) const;
  // Validates, registers and stores the row's ports as they were typed.
  void commitPorts(const Row& row) const;
  // Makes the stored ports the row's again.
  void revertPorts(const Row& row) const;
  // Back to the factory list.
  void reset() const;
  // Commits what was typed and not committed. Until the next load, the editing does nothing then.
  void flush() const;

private:
  using Protocol = std::shared_ptr<QEVDependencies::QEVNetworkProtocol>;

  QEVModels::AnalyzerPortsStore store() const;
  void follow() const;
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
  ViewState state_;
};

}  // namespace QEVSettings
