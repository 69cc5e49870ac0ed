#pragma once

#include <array>
#include <cstdint>

namespace QEVDependencies {

// The transports on which the ports of a protocol are watched. A case stands for its raw value
// wherever an integer is asked for; the raw values are what records keep.
struct kQEVSourceProtocols {  // NOLINT(readability-identifier-naming): a constant's name, shared
                              // with other modules
  enum Case : std::int64_t { none = 0, tcp = 1, udp = 2, both = 3 };

  static constexpr std::array allCases{none, tcp, udp, both};
};

}  // namespace QEVDependencies
