#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <filesystem>
#include <string>
#include <string_view>

namespace foundation {

enum class PropertyListFormat { xml, binary };

// Property lists, whose top level is a dictionary, in either format. Every value keeps its type.
//
//     if (const auto old = readPropertyList(path)) store.applyAll(*old);
//     else report(old.error().message);
//
// Reading refuses what the store has no type for (unique identifiers, integers beyond 64 bits with a sign),
// what is nested deeper than the store allows, and a small list that claims to be a huge one.
Result<QEVSettings::PreferenceDictionary> parsePropertyList(std::string_view bytes);
Result<QEVSettings::PreferenceDictionary> readPropertyList(const std::filesystem::path& path);

// Writing refuses text that the format cannot hold: what is no UTF-8 or has a NUL in it and, in XML, control
// characters; and dates before 1933 or after 2069. XML keeps whole seconds of a date, binary microseconds.
Result<std::string> propertyListBytes(const QEVSettings::PreferenceDictionary& values, PropertyListFormat format);
Outcome writePropertyList(const QEVSettings::PreferenceDictionary& values, const std::filesystem::path& path,
                          PropertyListFormat format);

}  // namespace foundation
