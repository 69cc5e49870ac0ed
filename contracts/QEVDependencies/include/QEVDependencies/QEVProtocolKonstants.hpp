// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace QEVDependencies {

// Texts that the settings and the analyzers share: the names of the members of a stored protocol
// record, and of two notifications.
//
//     auto& center = foundation::NotificationCenter::defaultCenter();
//     token = center.observe(rawValue(QEVProtocolKonstants::portsDidChange),
//                            [](std::string_view) { readPorts(); });
enum class QEVProtocolKonstants : std::uint8_t {
  id,
  protocolName,
  protocolPorts,
  // Notification, posted second after each change: data derived from protocol ports is out of date.
  portsDidChange,
  sourceProtocol,
  ethertype,
  linktype,
  size,
  // Separates the ports of a record.
  portsSeparator,
  // Notification, posted first after each change: an analyzer's stored protocol list has changed.
  protocolListDidChange,
};

constexpr std::string_view rawValue(QEVProtocolKonstants konstant) {
  constexpr std::array<std::string_view, 10> texts{"id",
                                                   "protocolName",
                                                   "protocolPorts",
                                                   "QEVProtocolPortsDidChange",
                                                   "sourceProtocol",
                                                   "ethertype",
                                                   "linktype",
                                                   "size",
                                                   ",",
                                                   "QEVProtocolListDidChange"};
  return texts.at(static_cast<std::size_t>(konstant));
}

}  // namespace QEVDependencies
