// SPDX-License-Identifier: MIT
#include "QEVDependencies/QEVPortsControllerProtocol.hpp"

#include "QEVDependencies/QEVNetworkProtocol.hpp"

namespace QEVDependencies {

void QEVPortsControllerProtocol::bringUpToDate(QEVNetworkProtocol& protocol,
                                               QEVNetworkProtocolProperty changed) {
  switch (changed) {
    case QEVNetworkProtocolProperty::protocolName:
      protocol.lastRegisteredName_ = protocol.protocolName.get();
      break;
    case QEVNetworkProtocolProperty::protocolPorts:
      protocol.lastRegisteredPorts_ = protocol.protocolPorts.get();
      break;
    case QEVNetworkProtocolProperty::sourceProtocol:
      protocol.lastRegisteredSource_ = protocol.sourceProtocol;
      break;
  }
}

}  // namespace QEVDependencies
