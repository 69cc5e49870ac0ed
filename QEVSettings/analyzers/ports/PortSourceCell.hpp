#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <cstdint>
#include <functional>

namespace QEVSettings {

// The transport of a protocol's ports, and the menu of all transports. `onPick` takes a raw value.
struct PortSourceCell {
  viewkit::ObservedObject<QEVDependencies::QEVNetworkProtocol> model;
  std::function<void(std::int64_t)> onPick;

  viewkit::View body() const;
};

}  // namespace QEVSettings
