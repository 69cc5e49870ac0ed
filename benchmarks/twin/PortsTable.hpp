// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <QGridLayout>
#include <QWidget>

#include <memory>

namespace twin {

// One row for each protocol of an analyzer: a menu of names, a field for the ports and a menu of
// transports. A button restores the factory list. The list is stored after every change.
class PortsTable final : public QWidget {
public:
  // The store outlives the table.
  PortsTable(QEVDependencies::AnalyzerPortsSpec ports, QEVSettings::PreferencesStore& store,
             QWidget* parent);

private:
  using Protocol = std::shared_ptr<QEVDependencies::QEVNetworkProtocol>;

  void show(const QEVDependencies::QEVNetworkProtocolList& protocols);
  void addRow(QGridLayout& grid, int row, const Protocol& protocol);
  void reset();

  QEVDependencies::AnalyzerPortsSpec ports_;
  QEVModels::AnalyzerPortsStore stored_;
  QEVDependencies::QEVNetworkProtocolList protocols_;
  QWidget* rows_ = nullptr;
};

}  // namespace twin
