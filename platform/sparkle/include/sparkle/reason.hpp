#pragma once

#include "foundation/Result.hpp"

#include <string_view>
#include <vector>

namespace sparkle {

// Why a check failed, in the person's language, to stand within a line: without a capital and a
// full stop. The key is the English text and is looked up in the application's own string table;
// "%1" and "%2" stand for the values. Main thread.
foundation::Error reason(std::string_view key, const std::vector<std::string_view>& values = {});

}  // namespace sparkle
