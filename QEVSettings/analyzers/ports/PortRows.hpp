#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVModels/ModelWrapper.hpp"

#include <memory>
#include <vector>

namespace QEVSettings {

// A row of the ports table: a copy of a protocol record, made to be edited.
using PortRow = std::shared_ptr<QEVModels::ModelWrapper<QEVDependencies::QEVNetworkProtocol>>;
using PortRows = std::vector<PortRow>;

// A row for each record.
PortRows portRows(const QEVDependencies::QEVNetworkProtocolList& list);

// The rows brought up to date with the list that is stored now: one for each record, in the list's
// order. A record's row is the one with its id. Two processes give the records of a factory list
// different ids, so a record without such a row has the first of the others that was last
// registered under its name. Rows without a record are left out.
PortRows portRows(const PortRows& shown, const QEVDependencies::QEVNetworkProtocolList& list);

}  // namespace QEVSettings
