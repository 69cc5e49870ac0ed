#pragma once

#include "QEVDependencies/QEVError.hpp"

#include <optional>
#include <string>

namespace QEVDependencies {

// What a row says about its last change. An empty text without details is nothing to say.
struct ErrorState {
  std::string errorText;
  std::optional<QEVError> errorDetails;

  bool isEmpty() const { return errorText.empty() && !errorDetails; }

  friend bool operator==(const ErrorState&, const ErrorState&) = default;
};

}  // namespace QEVDependencies
