#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace foundation {

// How deep arrays and dictionaries may be nested in a stored value.
inline constexpr int kMaximumPreferenceDepth = 512;

// The byte form of any value, in which the store keeps arrays and dictionaries:
//
//     value       a byte that is its PreferenceValue::Type, then its contents
//     integer     8 bytes, least significant first; a Boolean 1 byte
//     real, date  the 8 bytes of an IEEE-754 binary64, as an integer
//     text, data  a length, then the bytes
//     array       a count, then the values
//     dictionary  a count, then for each entry the key as text, then the value
//
// Lengths and counts are unsigned, seven bits a byte, least significant first, the top bit set in
// all but the last byte. Nothing for a value nested deeper than allowed.
std::optional<std::vector<std::uint8_t>> encodedPreference(
    const QEVSettings::PreferenceValue& value);

// The value of such bytes; nothing when they are no such form, too deep, or followed by more.
std::optional<QEVSettings::PreferenceValue> decodedPreference(std::span<const std::uint8_t> bytes);

}  // namespace foundation
