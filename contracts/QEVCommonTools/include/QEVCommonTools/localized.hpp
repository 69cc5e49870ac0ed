// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace QEVCommonTools {

// A text of the shared views in the user's language. The key is the English text, which is also the
// result without a translation or without the string tables.
std::string localized(std::string_view key);

}  // namespace QEVCommonTools
