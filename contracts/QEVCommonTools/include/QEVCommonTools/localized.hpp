#pragma once

#include <string>
#include <string_view>

namespace QEVCommonTools {

// A text of the shared views in the person's language. The key is the English text, and is what is
// shown where there is no translation, or no bundle of them.
std::string localized(std::string_view key);

}  // namespace QEVCommonTools
