// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace QEVSettings {

// The title, row or purpose of a descriptor in the user's language. The key is the English text,
// and also the result without a translation. The tables of this module, of QEVCommonTools and of
// the host are looked up, in this order.
std::string settingText(std::string_view key);

}  // namespace QEVSettings
