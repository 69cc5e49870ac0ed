// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <string_view>
#include <vector>

namespace foundation {

// The error for a list with a fault at a place such as "line 12" or "object 7". The keys lead from
// the top level to the value. An empty key stands for an array.
Error propertyListFault(std::string_view place, const std::vector<std::string_view>& keys,
                        std::string_view problem);

// The problems that both readers report: a limit is exceeded, or the top level is no dictionary.
Error noDictionaryFault();
std::string_view depthProblem();
std::string_view countProblem();

}  // namespace foundation
