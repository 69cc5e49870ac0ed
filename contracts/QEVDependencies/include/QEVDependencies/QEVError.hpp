// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace QEVDependencies {

// Why an analyzer did not accept a change of its settings. Analyzers throw it, and the settings
// show it on the row concerned.
//
//     if (!accepts(protocol)) throw QEVError::analyzerRefusedChange;
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

// What happened and what to do about it, in one or two English sentences.
std::string message(QEVError error);

}  // namespace QEVDependencies
