// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace QEVDependencies {

// The member of a protocol record that a change is about.
//
//     protocol->protocolPorts = "53,5353";
//     protocol->reportRegistered(QEVNetworkProtocolProperty::protocolPorts);
enum class QEVNetworkProtocolProperty : std::uint8_t {
  protocolName,
  protocolPorts,
  sourceProtocol
};

}  // namespace QEVDependencies
