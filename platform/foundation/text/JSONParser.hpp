// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"
#include "text/JSONDocument.hpp"

#include <optional>

namespace foundation {

// Checks the whole text of a document and fills in its nodes. Returns what is wrong with the text,
// nothing when it is valid.
std::optional<Error> parseJSON(JSONDocument& document);

}  // namespace foundation
