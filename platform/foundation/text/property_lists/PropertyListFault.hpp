#pragma once

#include "foundation/Result.hpp"

#include <string_view>
#include <vector>

namespace foundation {

// Why a list is refused, at a place such as "line 12" or "object 7". The keys lead from the top
// level to the value; an empty one stands for an array, whose elements have no keys.
Error propertyListFault(std::string_view place, const std::vector<std::string_view>& keys,
                        std::string_view problem);

// What both readers say of a list that is beyond a limit, or no dictionary.
Error noDictionaryFault();
std::string_view depthProblem();
std::string_view countProblem();

}  // namespace foundation
