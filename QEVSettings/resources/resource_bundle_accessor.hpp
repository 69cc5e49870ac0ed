// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Bundle.hpp"

#include <string>
#include <string_view>

namespace QEVSettings {

// The module's resource bundle, QEVSettings_QEVSettings.bundle. It is located at the first use and
// kept. The process stops when it does not exist.
const foundation::Bundle& moduleBundle();

// A text of the module in the user's language. The key is the English text, which is also the
// result without a translation.
std::string localized(std::string_view key);

}  // namespace QEVSettings
