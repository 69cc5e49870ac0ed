// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/ErrorState.hpp"
#include "foundation/ObservableObject.hpp"

namespace QEVDependencies {

// The error state of a row. Code that assigns the state announces the change first:
//
//     model.objectWillChange().announce();
//     model.errorState = {.errorText = "Error"};
class ErrorViewModel : public foundation::ObservableObject {
public:
  ErrorState errorState;
};

}  // namespace QEVDependencies
