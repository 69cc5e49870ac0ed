// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObservableObject.hpp"

namespace QEVCommonTools {

// The base of models that several views show together. A model announces each change beforehand.
//
//     struct FilterModel final : ViewModel {
//       foundation::Published<std::string> expression{*this, ""};
//     };
class ViewModel : public foundation::ObservableObject {};

}  // namespace QEVCommonTools
