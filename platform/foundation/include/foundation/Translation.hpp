// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace foundation {

// A message in the user's language, from the string table of the program. `english` is its key;
// "%1" to "%9" stand for the values. Main thread.
//
//     translated("there is no key “%1”", {key});
std::string translated(std::string_view english,
                       std::initializer_list<std::string_view> values = {});

}  // namespace foundation
