// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <cstdint>
#include <functional>

namespace QEVSettings {

// The transport of a protocol's ports, with the menu of all transports. `onPick` is called with the
// raw value of the transport that was picked.
struct PortSourceCell {
  viewkit::ObservedObject<QEVDependencies::QEVNetworkProtocol> model;
  std::function<void(std::int64_t)> onPick;

  viewkit::View body() const;
};

}  // namespace QEVSettings
