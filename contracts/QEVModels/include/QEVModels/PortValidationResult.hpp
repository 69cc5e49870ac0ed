#pragma once

#include "QEVModels/PortCorrection.hpp"

#include <string>
#include <vector>

namespace QEVModels {

// What the validator made of a ports text.
struct PortValidationResult {
  // In normal form; empty when nothing valid remained.
  std::string ports;
  // At most one of each kind, in the order of the kinds.
  std::vector<PortCorrection> corrections;

  friend bool operator==(const PortValidationResult&, const PortValidationResult&) = default;
};

}  // namespace QEVModels
