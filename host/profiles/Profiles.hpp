// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// A profile is a preferences store of its own, in the folder `profiles/NAME` next to the standard
// store, which is the profile named kStandardProfile. Profiles are files, so every process sees
// what another one makes, renames and deletes.

inline constexpr std::string_view kStandardProfile = "standard";

// A name for a profile, or what is wrong with it. A name is UTF-8 text of at most 100 bytes in any
// language, without slashes and control characters, and does not begin with a dot or a blank.
foundation::Result<std::string> checkedProfileName(std::string_view name);

// The file of a profile, whether it exists or not.
std::filesystem::path profileFile(const std::string& name);

// Makes a profile the store of the process. To be called before the store is used.
void useProfile(const std::string& name);

// The standard profile, then the others in the order of their names.
std::vector<std::string> profiles();

bool profileExists(const std::string& name);

// Fails when the name is taken. `from` names the profile whose values the new one begins with;
// empty for none.
foundation::Outcome createProfile(const std::string& name, const std::string& from);

// Fail for the standard profile, and for a name that does not exist.
foundation::Outcome renameProfile(const std::string& name, const std::string& newName);
foundation::Outcome deleteProfile(const std::string& name);

// Fails with what to do when there is no such profile.
foundation::Outcome checkProfile(const std::string& name);

}  // namespace zorvantine
