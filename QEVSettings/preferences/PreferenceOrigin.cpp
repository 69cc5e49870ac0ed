// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceOrigin.hpp"

namespace QEVSettings {

std::string_view nameOf(PreferenceOrigin origin) {
  switch (origin) {
    case PreferenceOrigin::locked: return "locked";
    case PreferenceOrigin::commandLine: return "command-line";
    case PreferenceOrigin::user: return "user";
    case PreferenceOrigin::administrator: return "administrator";
    case PreferenceOrigin::standard: break;
  }
  return "default";
}

}  // namespace QEVSettings
