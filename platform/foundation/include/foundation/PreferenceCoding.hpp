// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace foundation {

// The deepest nesting of arrays and dictionaries in a stored value.
inline constexpr int kMaximumPreferenceDepth = 512;

// The byte form of a value. The store keeps arrays and dictionaries in it:
//
//     value       a byte that is its PreferenceValue::Type, then its contents
//     integer     8 bytes, least significant first; a Boolean 1 byte
//     real, date  the 8 bytes of an IEEE-754 binary64, as an integer
//     text, data  a length, then the bytes
//     array       a count, then the values
//     dictionary  a count, then for each entry the key as text, then the value
//
// Lengths and counts are unsigned: seven bits in each byte, the least significant first, with the
// top bit set in all bytes but the last. Nothing for a value that is nested too deep.
std::optional<std::vector<std::uint8_t>> encodedPreference(
    const QEVSettings::PreferenceValue& value);

// The value of such bytes. Nothing when they are malformed, nested too deep, or followed by others.
std::optional<QEVSettings::PreferenceValue> decodedPreference(std::span<const std::uint8_t> bytes);

}  // namespace foundation
