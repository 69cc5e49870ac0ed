#pragma once

#include "QEVDependencies/ErrorState.hpp"
#include "foundation/ObservableObject.hpp"

namespace QEVDependencies {

// The message that stands with a row. Whoever assigns the state announces the coming change first:
//
//     model.objectWillChange().announce();
//     model.errorState = {.errorText = "Error"};
class ErrorViewModel : public foundation::ObservableObject {
public:
  ErrorState errorState;
};

}  // namespace QEVDependencies
