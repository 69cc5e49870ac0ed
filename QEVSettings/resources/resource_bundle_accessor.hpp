#pragma once

#include "foundation/Bundle.hpp"

#include <string>
#include <string_view>

namespace QEVSettings {

// The module's resources: the bundle directory QEVSettings_QEVSettings.bundle, found at first use
// and kept. The process stops when there is none.
const foundation::Bundle& moduleBundle();

// A text of the module in the person's language. The key is the English text, and is what is shown
// where there is no translation.
std::string localized(std::string_view key);

}  // namespace QEVSettings
