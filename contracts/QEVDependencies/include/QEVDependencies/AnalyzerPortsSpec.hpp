// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"

#include <string>
#include <vector>

namespace QEVDependencies {

// The protocols of an analyzer that recognises protocols by their ports.
//
//     config.ports = AnalyzerPortsSpec{.networkProtocolKey = "com_velloquin_qev_dns_protocols",
//                                      .defaultProtocolNames = {"DNS", "mDNS"},
//                                      .defaultPorts = {dns, multicastDNS}};
struct AnalyzerPortsSpec {
  // The key of the protocol list in the preferences store. Must begin with "com_velloquin_qev_" and
  // end with "_protocols", because the migration finds it by these.
  std::string networkProtocolKey;
  // The names that the user can choose from, in the order of the menu. They are not translated.
  std::vector<std::string> defaultProtocolNames;
  // The default list: in effect while nothing is stored, and after a reset.
  QEVNetworkProtocolList defaultPorts;
};

}  // namespace QEVDependencies
