// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <typeinfo>

namespace viewkit {

// The name of a class without namespaces and template arguments: "SettingsIconRow".
std::string unqualifiedTypeName(const std::type_info& type);

}  // namespace viewkit
