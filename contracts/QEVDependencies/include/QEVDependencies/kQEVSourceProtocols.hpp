// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace QEVDependencies {

// The transports on which an analyzer watches the ports of a protocol. A case converts to its raw
// value, which is what records store.
//
//     protocol->sourceProtocol = kQEVSourceProtocols::both;
struct kQEVSourceProtocols {  // NOLINT(readability-identifier-naming): a constant's name, shared
                              // with other modules
  enum Case : std::int64_t { none = 0, tcp = 1, udp = 2, both = 3 };

  static constexpr std::array allCases{none, tcp, udp, both};
};

}  // namespace QEVDependencies
