// SPDX-License-Identifier: MIT
#pragma once

#include "commands/CommandEntry.hpp"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Texts that help and the manual page share.

namespace zorvantine {

inline constexpr std::array<std::pair<Chapter, std::string_view>, 5> kChapters{
    {{Chapter::window, "The window"},
     {Chapter::preferences, "The preferences"},
     {Chapter::profiles, "The profiles"},
     {Chapter::analyzers, "The analyzers"},
     {Chapter::help, "Help"}}};

inline constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kExitCodes{
    {{"0", "Done."},
     {"1", "There is no such key, or some of the ports were left out."},
     {"2", "The command line is wrong, or a value does not fit its setting."},
     {"3",
      "The store or a file could not be read or written, or an administrator has locked the "
      "setting. A command that reads gives this too when --store names a file that is not there; "
      "the person's own store is empty until something is stored."}}};

// "--format text|json".
std::string nameAndValue(const Option& option);

// The options that the commands of the window share.
std::vector<Option> windowOptions();

}  // namespace zorvantine
