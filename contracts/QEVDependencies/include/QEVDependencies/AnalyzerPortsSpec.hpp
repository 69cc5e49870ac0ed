#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"

#include <string>
#include <vector>

namespace QEVDependencies {

// The protocols of an analyzer that goes by ports.
struct AnalyzerPortsSpec {
  // The key of the protocol list in the preferences store. Begins with "com_velloquin_qev_" and
  // ends with "_protocols".
  std::string networkProtocolKey;
  // The names that the user may pick from, in menu order. They are shown as they are.
  std::vector<std::string> defaultProtocolNames;
  // The factory list: in effect while nothing is stored, and after a reset.
  QEVNetworkProtocolList defaultPorts;
};

}  // namespace QEVDependencies
