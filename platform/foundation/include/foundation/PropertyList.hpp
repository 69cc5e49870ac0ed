// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/PreferenceCoding.hpp"
#include "foundation/Result.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace foundation {

// The limits of reading and writing: a list beyond one of them is an error.
//
// The size of a list to read, in bytes.
inline constexpr std::size_t kMaximumPropertyListBytes = std::size_t{1} << 30;
// The nesting of a value under a key of the list; the same as for stored values.
inline constexpr int kMaximumPropertyListDepth = kMaximumPreferenceDepth;
// The number of values, including those inside arrays and dictionaries.
inline constexpr std::size_t kMaximumPropertyListValues = std::size_t{1} << 20;
// The bytes of text and data that a binary list may have beyond its own size. A binary list may
// refer to an object several times, and the limits count the object each time.
inline constexpr std::size_t kMaximumPropertyListRepeatedBytes = std::size_t{64} << 20;

// The formats of a property list.
//
//     const Outcome outcome = writePropertyList(values, path, PropertyListFormat::xml);
//     if (!outcome) report(outcome.error().message);
enum class PropertyListFormat { xml, binary };

// Property lists in both formats. The top level is a dictionary. Every value keeps its type.
//
//     if (const auto old = readPropertyList(path)) store.applyAll(*old);
//     else report(old.error().message);
//
// Reading returns every value or fails. The error names the line (XML) or the object (binary) and
// the keys that lead to it. Errors are: a value that does not match its type, an integer beyond 64
// bits with a sign, a type that the store lacks (null, unique identifier), a text with a NUL, a
// document that declares entities, and a list beyond the limits. Of two values under one key, the
// last one is used.
Result<QEVSettings::PreferenceDictionary> parsePropertyList(std::string_view bytes);
Result<QEVSettings::PreferenceDictionary> readPropertyList(const std::filesystem::path& path);

// Writing fails for values that the format cannot hold: a text that is not UTF-8 or has a NUL, and
// in XML a text with control characters, U+FFFE or U+FFFF, and a date outside the years 0 to 9999.
// XML drops the fraction of a second of a date; the binary format keeps it.
Result<std::string> propertyListBytes(const QEVSettings::PreferenceDictionary& values,
                                      PropertyListFormat format);
Outcome writePropertyList(const QEVSettings::PreferenceDictionary& values,
                          const std::filesystem::path& path, PropertyListFormat format);

}  // namespace foundation
