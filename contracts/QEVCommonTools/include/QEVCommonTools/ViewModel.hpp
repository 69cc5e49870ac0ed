// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObservableObject.hpp"

namespace QEVCommonTools {

// The base of models that several views show together. A model announces each change beforehand.
class ViewModel : public foundation::ObservableObject {};

}  // namespace QEVCommonTools
