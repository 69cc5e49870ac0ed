// SPDX-License-Identifier: MIT
#include "analyzers/ports/PortRows.hpp"

#include "QEVModels/QEVPortsController.hpp"
#include "analyzers/AnalyzerError.hpp"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>

namespace QEVSettings {

using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;

namespace {

using Protocol = std::shared_ptr<QEVNetworkProtocol>;

// The row edits a copy of the record, or the record itself if it cannot be copied.
PortRow makeRow(const Protocol& source) {
  const auto copy = source->copied();
  const Protocol protocol = copy ? *copy : source;
  protocol->setPortController(QEVModels::QEVPortsController::sharedPortsController());
  auto row = std::make_shared<QEVModels::ModelWrapper<QEVNetworkProtocol>>(protocol);
  protocol->setupBinding();
  return row;
}

// Rows by a key. Each is taken once; rows with the same key are taken in the order of adding.
template <class Key>
class RowsByKey {
public:
  void add(const Key& key, const PortRow& row) { rows_.emplace(key, row); }

  PortRow take(const Key& key) {
    const auto found = rows_.lower_bound(key);
    if (found == rows_.end() || found->first != key) return nullptr;
    return rows_.extract(found).mapped();
  }

private:
  std::multimap<Key, PortRow> rows_;
};

void bringUpToDate(const PortRow& row, const QEVNetworkProtocol& stored) {
  const Protocol& protocol = row->model();
  if (!protocol->takeOver(stored)) return;
  // A text that is not committed keeps its message.
  const bool isBeingTyped = protocol->protocolPorts.get() != protocol->lastRegisteredPorts();
  if (!isBeingTyped && !protocol->errorModel()->errorState.isEmpty()) showErrorState({}, *protocol);
}

}  // namespace

PortRows portRows(const QEVNetworkProtocolList& list) {
  PortRows rows;
  rows.reserve(list.size());
  std::ranges::transform(list, std::back_inserter(rows), makeRow);
  return rows;
}

PortRows portRows(const PortRows& shown, const QEVNetworkProtocolList& list) {
  RowsByKey<foundation::UUID> byId;
  for (const PortRow& row : shown) byId.add(row->model()->id(), row);
  PortRows rows;
  rows.reserve(list.size());
  for (const Protocol& record : list) rows.push_back(byId.take(record->id()));

  const std::set<PortRow> matched(rows.begin(), rows.end());
  RowsByKey<std::string> byName;
  for (const PortRow& row : shown) {
    if (!matched.contains(row)) byName.add(row->model()->lastRegisteredName(), row);
  }
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (!rows[i]) rows[i] = byName.take(list[i]->protocolName.get());
    if (rows[i]) {
      bringUpToDate(rows[i], *list[i]);
    } else {
      rows[i] = makeRow(list[i]);
    }
  }
  return rows;
}

}  // namespace QEVSettings
