#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <optional>

namespace QEVSettings {

// A Boolean of the preferences store as analyzers read it: once anything is stored under the key,
// the default no longer counts, and what is no Boolean is false.
struct AnalyzerOption {
  bool isOn = false;

  operator PreferenceValue() const { return isOn; }
};

inline std::optional<AnalyzerOption> readPreference(const PreferenceValue& value,
                                                    const AnalyzerOption&) {
  return AnalyzerOption{value.convertedToBoolean().value_or(false)};
}

}  // namespace QEVSettings
