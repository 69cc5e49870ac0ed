// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceDescriptor.hpp"

#include <string>
#include <string_view>

namespace QEVSettings {

// The title without the colon that it may end with before a control.
std::string withoutColon(std::string_view title);

// The title of the setting in the user's language, without that colon.
std::string settingName(const PreferenceDescriptor& descriptor);

}  // namespace QEVSettings
