// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceDescriptor.hpp"

#include <string>

namespace QEVSettings {

// The title of the setting in the user's language, without the colon that it has before a control.
std::string settingName(const PreferenceDescriptor& descriptor);

}  // namespace QEVSettings
