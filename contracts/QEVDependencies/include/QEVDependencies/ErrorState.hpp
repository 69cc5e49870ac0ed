// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVError.hpp"

#include <optional>
#include <string>

namespace QEVDependencies {

// The error of a row's last change, or its corrections. Without text and details there is none.
// See ErrorViewModel.
struct ErrorState {
  std::string errorText;
  std::optional<QEVError> errorDetails;

  bool isEmpty() const { return errorText.empty() && !errorDetails; }

  friend bool operator==(const ErrorState&, const ErrorState&) = default;
};

}  // namespace QEVDependencies
