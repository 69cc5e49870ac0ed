// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <optional>

namespace QEVSettings {

// A Boolean of the preferences store as analyzers read it: the default applies only while nothing
// is stored under the key, and a stored value that is no Boolean is false.
struct AnalyzerOption {
  bool isOn = false;

  operator PreferenceValue() const { return isOn; }
};

inline std::optional<AnalyzerOption> readPreference(const PreferenceValue& value,
                                                    const AnalyzerOption&) {
  return AnalyzerOption{value.convertedToBoolean().value_or(false)};
}

}  // namespace QEVSettings
