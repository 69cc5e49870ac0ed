#pragma once

#include "foundation/ObservableObject.hpp"

namespace QEVCommonTools {

// A model made for views: it holds what several of them show together and announces each change.
class ViewModel : public foundation::ObservableObject {};

}  // namespace QEVCommonTools
