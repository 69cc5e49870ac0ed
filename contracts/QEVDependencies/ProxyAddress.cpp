// SPDX-License-Identifier: MIT
#include "QEVDependencies/ProxyAddress.hpp"

#include "foundation/Ascii.hpp"

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

namespace QEVDependencies {

namespace {

using foundation::Error;
using foundation::isDigit;
using foundation::isLetter;
using foundation::Result;
using foundation::withoutBlanks;

bool isHexadecimalDigit(char c) { return foundation::hexadecimalDigit(c).has_value(); }

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> parts;
  for (auto at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
    parts.push_back(text.substr(0, at));
    text.remove_prefix(at + separator.size());
  }
  parts.push_back(text);
  return parts;
}

std::optional<int> number(std::string_view text, std::size_t digits) {
  int result = 0;
  if (text.empty() || text.size() > digits || !std::ranges::all_of(text, isDigit))
    return std::nullopt;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return result;
}

bool isIPv4(std::string_view text) {
  const auto parts = split(text, ".");
  return parts.size() == 4 && std::ranges::all_of(parts, [](std::string_view part) {
           const auto value = number(part, 3);
           return value && *value <= 255 && (part.size() == 1 || part.front() != '0');
         });
}

// The number of 16-bit groups in a part of an IPv6 address. Nothing when the part is malformed.
std::optional<std::size_t> ipv6Groups(std::string_view text, bool endsAddress) {
  if (text.empty()) return 0;
  const auto groups = split(text, ":");
  std::size_t count = groups.size();
  for (const auto& group : groups) {
    const bool isLast = &group == &groups.back();
    if (isLast && endsAddress && isIPv4(group)) {
      ++count;
    } else if (group.empty() || group.size() > 4 ||
               !std::ranges::all_of(group, isHexadecimalDigit)) {
      return std::nullopt;
    }
  }
  return count;
}

bool isIPv6(std::string_view text) {
  const auto halves = split(text, "::");
  if (halves.size() > 2) return false;
  const bool isShortened = halves.size() == 2;
  const auto first = ipv6Groups(halves.front(), !isShortened);
  const auto second = isShortened ? ipv6Groups(halves.back(), true) : std::optional<std::size_t>(0);
  if (!first || !second) return false;
  return isShortened ? *first + *second < 8 : *first == 8;
}

bool isHostName(std::string_view text) {
  if (text.ends_with('.')) text.remove_suffix(1);
  if (text.size() > 253) return false;
  const auto labels = split(text, ".");
  // A name whose last label is a number is a mistyped address.
  if (std::ranges::all_of(labels.back(), isDigit)) return false;
  return std::ranges::all_of(labels, [](std::string_view label) {
    return !label.empty() && label.size() <= 63 && label.front() != '-' && label.back() != '-' &&
           std::ranges::all_of(
               label, [](char c) { return isLetter(c) || isDigit(c) || c == '-' || c == '_'; });
  });
}

}  // namespace

Result<std::string> validatedProxyHost(std::string_view text) {
  text = withoutBlanks(text);
  if (text.empty())
    return Error{"Type the address: a host name such as localhost, or an IP address"};
  if (text.starts_with('[') && text.ends_with(']')) {
    const auto address = text.substr(1, text.size() - 2);
    if (isIPv6(address)) return std::string(address);
  } else if (isIPv4(text) || isIPv6(text) || isHostName(text)) {
    return std::string(text);
  }
  return Error{
      "This is no address: type a host name such as localhost, or an IP address such as 127.0.0.1 "
      "or ::1"};
}

Result<std::uint16_t> validatedProxyPort(std::string_view text) {
  const auto port = number(withoutBlanks(text), 5);
  if (!port || *port < 1 || *port > 65535) return Error{"Type a port from 1 to 65535"};
  return static_cast<std::uint16_t>(*port);
}

Result<ProxyAddress> ProxyAddress::fromText(std::string_view host, std::string_view port) {
  auto validHost = validatedProxyHost(host);
  if (!validHost) return validHost.error();
  const auto validPort = validatedProxyPort(port);
  if (!validPort) return validPort.error();
  return ProxyAddress{.host = *std::move(validHost), .port = *validPort};
}

std::string ProxyAddress::text() const {
  const bool isIPv6Address = host.find(':') != std::string::npos;
  return (isIPv6Address ? '[' + host + ']' : host) + ':' + std::to_string(port);
}

}  // namespace QEVDependencies
