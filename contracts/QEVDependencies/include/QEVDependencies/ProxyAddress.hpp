// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace QEVDependencies {

// The address on which a proxy listens, or to which it forwards. `fromText` returns valid addresses
// only.
//
//     const auto address = ProxyAddress::fromText("localhost", "8080");
//     if (!address) show(address.error().message);
struct ProxyAddress {
  // A host name, an IPv4 address, or an IPv6 address without brackets.
  std::string host;
  std::uint16_t port = 0;

  // Reads an address as a user types it; blanks around the texts are ignored. The error says which
  // of the two is wrong and why.
  static foundation::Result<ProxyAddress> fromText(std::string_view host, std::string_view port);

  // "localhost:8080", "[::1]:8080"
  std::string text() const;

  friend bool operator==(const ProxyAddress&, const ProxyAddress&) = default;
};

// Reads a host name, an IPv4 address, or an IPv6 address with or without brackets. The result has
// no brackets.
foundation::Result<std::string> validatedProxyHost(std::string_view text);

// Reads a port from 1 to 65535.
foundation::Result<std::uint16_t> validatedProxyPort(std::string_view text);

}  // namespace QEVDependencies
