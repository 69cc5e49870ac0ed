#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/PreferenceCoding.hpp"
#include "foundation/Result.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace foundation {

// A list beyond one of these limits is refused, in reading and in writing.
//
// A longer list is not read.
inline constexpr std::size_t kMaximumPropertyListBytes = std::size_t{1} << 30;
// A value under a key of the list has as many levels as a stored one.
inline constexpr int kMaximumPropertyListDepth = kMaximumPreferenceDepth;
// Values in all, those inside others included.
inline constexpr std::size_t kMaximumPropertyListValues = std::size_t{1} << 20;
// A binary list may name an object more than once. Both limits count it as often as it is named;
// its text and data may take so many bytes more than the list itself.
inline constexpr std::size_t kMaximumPropertyListRepeatedBytes = std::size_t{64} << 20;

enum class PropertyListFormat { xml, binary };

// Property lists, whose top level is a dictionary, in either format. Every value keeps its type.
//
//     if (const auto old = readPropertyList(path)) store.applyAll(*old);
//     else report(old.error().message);
//
// Reading takes every value as it is or fails; the error names the line (XML) or the object
// (binary) and the keys that lead there. Refused are values that are not what their type says,
// integers beyond 64 bits with a sign, types that the store does not have (null, unique
// identifiers), text with a NUL, documents that declare entities, and what is beyond the limits. Of
// two values under one key the last counts.
Result<QEVSettings::PreferenceDictionary> parsePropertyList(std::string_view bytes);
Result<QEVSettings::PreferenceDictionary> readPropertyList(const std::filesystem::path& path);

// Writing refuses what the format cannot hold: text that is no UTF-8 or has a NUL in it; in XML,
// text with control characters or U+FFFE or U+FFFF, and dates outside the years 0 to 9999. XML
// keeps whole seconds of a date, binary all of it.
Result<std::string> propertyListBytes(const QEVSettings::PreferenceDictionary& values,
                                      PropertyListFormat format);
Outcome writePropertyList(const QEVSettings::PreferenceDictionary& values,
                          const std::filesystem::path& path, PropertyListFormat format);

}  // namespace foundation
