// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVModels/ModelWrapper.hpp"

#include <memory>
#include <vector>

namespace QEVSettings {

// A row of the ports table: a copy of a protocol record for editing.
using PortRow = std::shared_ptr<QEVModels::ModelWrapper<QEVDependencies::QEVNetworkProtocol>>;
using PortRows = std::vector<PortRow>;

// A row for each record.
PortRows portRows(const QEVDependencies::QEVNetworkProtocolList& list);

// Brings the shown rows up to date with the stored list: one row for each record, in the order of
// the list. A record keeps the row with its id. Two processes give the records of a factory list
// different ids, so a record without such a row keeps the first other row that was last registered
// under its name. Rows without a record are left out.
PortRows portRows(const PortRows& shown, const QEVDependencies::QEVNetworkProtocolList& list);

}  // namespace QEVSettings
