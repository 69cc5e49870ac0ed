#pragma once

#include "foundation/Result.hpp"

#include <optional>
#include <string_view>

namespace foundation {

// What the property-list library does not look at before it goes to work: lists nested so deep that its
// recursion would end the process, objects that contain themselves, few bytes that unfold into many, and
// integers that it would hand out as other ones. It finds any other fault itself.
std::optional<Error> faultOfXmlPropertyList(std::string_view text);
std::optional<Error> faultOfBinaryPropertyList(std::string_view bytes);

}  // namespace foundation
