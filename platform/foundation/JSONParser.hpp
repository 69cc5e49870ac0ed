#pragma once

#include "JSONDocument.hpp"
#include "foundation/Result.hpp"

#include <optional>

namespace foundation {

// Fills the nodes of a document from its text.
std::optional<Error> parseJSON(JSONDocument& document);

}  // namespace foundation
