// SPDX-License-Identifier: MIT
#include "QEVDependencies/QEVError.hpp"

namespace QEVDependencies {

std::string message(QEVError error) {
  switch (error) {
    case QEVError::analyzerNotRunning:
      return "The analyzer is not running. Start it, then make the change again.";
    case QEVError::analyzerRefusedChange:
      return "The analyzer refused the change. Choose other values.";
    case QEVError::protocolNameMissing: return "The protocol has no name. Choose one under Name.";
    case QEVError::protocolUnknown:
      return "The analyzer does not know a protocol of this name. Choose another one under Name.";
    case QEVError::protocolAlreadyListed:
      return "Another row has the same protocol. Add the ports there, or choose another name.";
    case QEVError::portsTakenByOtherProtocol:
      return "Another protocol listens on one of these ports. Take the port out here or there.";
    case QEVError::sourceNotSupported:
      return "The analyzer cannot follow this protocol on that transport. Choose another source.";
    case QEVError::tooManyPorts:
      return "These are more ports than the analyzer can watch. Name fewer of them.";
    case QEVError::registrationFailed:
      return "The analyzer could not take over the change. Try again.";
    case QEVError::noUsablePorts:
      return "There is no port in this text. Type numbers from 0 to 65535, or ranges such as "
             "8000-8010.";
  }
  return "The change failed. Try again.";
}

}  // namespace QEVDependencies
