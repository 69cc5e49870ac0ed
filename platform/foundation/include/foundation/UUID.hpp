// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// A universally unique identifier, a value of 16 bytes.
//
//     const UUID id = UUID::parse(text).value_or(UUID::random());
class UUID {
public:
  // A new identifier of random bits (version 4).
  static UUID random();

  // Reads the form E621E1F8-C36C-495A-93FC-0C247A3E6E5F, in letters of either case. Nothing for any
  // other text.
  static std::optional<UUID> parse(std::string_view text);

  // The same form, in capital letters.
  std::string text() const;

  friend auto operator<=>(const UUID&, const UUID&) = default;

private:
  std::array<std::uint8_t, 16> bytes_{};
};

}  // namespace foundation
