#pragma once

#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"
#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVModels/ModelWrapper.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "viewkit/Binding.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace QEVSettings {

// What a person's actions do to the protocols of one analyzer. The whole list is stored after every
// change, the running analyzer hears of the change, and everyone else is notified. What goes wrong is
// said on the row concerned and ends the action.
class PortsEditing {
public:
  using Row = std::shared_ptr<QEVModels::ModelWrapper<QEVDependencies::QEVNetworkProtocol>>;
  using Rows = std::vector<Row>;

  // The store outlives the editing. Without a controller, or when it is gone, only its calls are left out.
  // `isShown` is kept true from a load to the flush.
  PortsEditing(QEVDependencies::AnalyzerPortsSpec ports,
               std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller, PreferencesStore& defaults,
               viewkit::Binding<Rows> rows, viewkit::Binding<bool> isShown);

  void load() const;
  void pickName(const Row& row, const std::string& name) const;
  void pickSource(const Row& row, std::int64_t source) const;
  // A field that is being edited when it goes away says so after the flush, which has committed it then.
  void fieldCommitted(const Row& row) const;
  // Back to the factory list.
  void reset() const;
  // Commits what was typed and not committed.
  void flush() const;

private:
  using Protocol = std::shared_ptr<QEVDependencies::QEVNetworkProtocol>;

  QEVModels::AnalyzerPortsStore store() const;
  void commitPorts(const Row& row) const;
  void replaceRows(const QEVDependencies::QEVNetworkProtocolList& list) const;
  Protocol factoryRecord(const std::string& name) const;
  void report(const Protocol& old, const Protocol& current, QEVDependencies::QEVNetworkProtocolProperty changed) const;
  void saveAndNotify() const;

  QEVDependencies::AnalyzerPortsSpec ports_;
  std::weak_ptr<QEVDependencies::QEVPortsPreferencesProtocol> controller_;
  PreferencesStore* defaults_;
  viewkit::Binding<Rows> rows_;
  viewkit::Binding<bool> isShown_;
};

}  // namespace QEVSettings
