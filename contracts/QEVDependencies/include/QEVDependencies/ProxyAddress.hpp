#pragma once

#include "foundation/Result.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace QEVDependencies {

// Where a proxy listens or sends its traffic on. One that comes from `fromText` is valid.
struct ProxyAddress {
  // A host name, an IPv4 address, or an IPv6 address without brackets.
  std::string host;
  std::uint16_t port = 0;

  // An address as a person types it, blanks around it aside. The error says what is wrong with
  // which of the two.
  static foundation::Result<ProxyAddress> fromText(std::string_view host, std::string_view port);

  // "localhost:8080", "[::1]:8080"
  std::string text() const;

  friend bool operator==(const ProxyAddress&, const ProxyAddress&) = default;
};

// Whether a text is a host name, an IPv4 address or an IPv6 address, the last with or without
// brackets.
foundation::Result<std::string> validatedProxyHost(std::string_view text);

// A port that a proxy can use: 1 to 65535.
foundation::Result<std::uint16_t> validatedProxyPort(std::string_view text);

}  // namespace QEVDependencies
