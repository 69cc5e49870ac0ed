// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

// The standard base64 text of the bytes: RFC 4648 alphabet, padded, on one line.
std::string base64Encoded(std::span<const std::uint8_t> bytes);

// Decodes only what `base64Encoded` writes. Nothing for any other text: one with blanks, line
// breaks, missing padding, or bits that belong to no byte.
std::optional<std::vector<std::uint8_t>> base64Decoded(std::string_view text);

}  // namespace foundation
