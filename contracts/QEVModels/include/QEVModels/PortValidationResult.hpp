// SPDX-License-Identifier: MIT
#pragma once

#include "QEVModels/PortCorrection.hpp"

#include <string>
#include <vector>

namespace QEVModels {

// The result of validating a ports text.
//
//     const PortValidationResult result = validatedPorts("90-80");
//     result.ports;                     // "80-90"
//     result.corrections.at(0).kind();  // PortCorrection::Kind::reversed
struct PortValidationResult {
  // In normal form. Empty when nothing valid remains.
  std::string ports;
  // At most one for each kind, in the order of the kinds.
  std::vector<PortCorrection> corrections;

  friend bool operator==(const PortValidationResult&, const PortValidationResult&) = default;
};

}  // namespace QEVModels
