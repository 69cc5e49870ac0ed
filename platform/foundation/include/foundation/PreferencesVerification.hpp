// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace foundation {

// The result of `verifyPreferences`.
//
//     const auto result = verifyPreferences(UserDefaults::standardFile());
//     for (const std::string& sentence : result.sentences) show(sentence);
struct PreferencesVerification {
  bool isGood = false;  // the store and its good copy, if any, hold what was written to them
  std::vector<std::string> sentences;  // plain ones, for the user; none tells a value
};

// Looks at a store's file and at what stands next to it, reads all of it, and changes nothing.
// Takes as long as reading the file twice.
PreferencesVerification verifyPreferences(const std::filesystem::path& store);

}  // namespace foundation
