#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace QEVDependencies {

// The texts on which the settings and the analyzers agree about protocols: the members of a stored
// record, and the names of two notifications.
enum class QEVProtocolKonstants : std::uint8_t {
  id,
  protocolName,
  protocolPorts,
  // Posted second after each change: what was derived from the ports of any protocol is out of
  // date.
  portsDidChange,
  sourceProtocol,
  ethertype,
  linktype,
  size,
  // Stands between the ports of a record.
  portsSeparator,
  // Posted first after each change: an analyzer's stored list of protocols is another one now.
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
