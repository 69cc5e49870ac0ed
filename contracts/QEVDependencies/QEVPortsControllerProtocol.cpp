#include "QEVDependencies/QEVPortsControllerProtocol.hpp"

#include "QEVDependencies/QEVNetworkProtocol.hpp"

namespace QEVDependencies {

void QEVPortsControllerProtocol::bringUpToDate(QEVNetworkProtocol& protocol) {
  protocol.lastRegisteredName_ = protocol.protocolName.get();
  protocol.lastRegisteredPorts_ = protocol.protocolPorts.get();
  protocol.lastRegisteredSource_ = protocol.sourceProtocol.get();
}

}  // namespace QEVDependencies
