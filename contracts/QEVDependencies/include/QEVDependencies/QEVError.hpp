#pragma once

#include <cstdint>
#include <string>

namespace QEVDependencies {

// What can go wrong between the settings and an analyzer. Thrown as it is, and shown on the row
// concerned.
enum class QEVError : std::uint8_t {
  analyzerNotRunning,
  analyzerRefusedChange,
  protocolNameMissing,
  protocolUnknown,
  protocolAlreadyListed,
  portsTakenByOtherProtocol,
  sourceNotSupported,
  tooManyPorts,
  registrationFailed,
  noUsablePorts,
};

// What happened and what to do about it: one or two plain sentences.
std::string message(QEVError error);

}  // namespace QEVDependencies
