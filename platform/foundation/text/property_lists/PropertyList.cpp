// SPDX-License-Identifier: MIT
#include "foundation/PropertyList.hpp"

#include "foundation/Files.hpp"
#include "text/property_lists/PropertyListFault.hpp"
#include "text/property_lists/PropertyListForms.hpp"

#include <algorithm>
#include <new>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

Error tooLong() {
  return {"the property list is larger than " + std::to_string(kMaximumPropertyListBytes >> 20U) +
          " MB; choose a smaller one"};
}

Error tooLittleMemory() {
  return {"there is too little memory for the property list; close other programs"};
}

// Applies the limits of reading to a list that is to be written.
class Extent {
public:
  bool isBounded(const PreferenceDictionary& entries, int depth = 0) {
    return std::ranges::all_of(
        entries, [&](const auto& entry) { return isBounded(entry.second, depth + 1); });
  }

  std::string_view problem() const { return problem_; }

private:
  bool fail(std::string_view problem) {
    problem_ = problem;
    return false;
  }

  bool isBounded(const PreferenceValue& value, int depth) {
    // The top level does not count as a level.
    if (depth > kMaximumPropertyListDepth + 1) return fail(depthProblem());
    if (++count_ > kMaximumPropertyListValues) return fail(countProblem());
    if (const auto* entries = value.asDictionary()) return isBounded(*entries, depth);
    if (const auto* elements = value.asArray()) {
      return std::ranges::all_of(
          *elements, [&](const PreferenceValue& element) { return isBounded(element, depth + 1); });
    }
    return true;
  }

  std::size_t count_ = 0;
  std::string_view problem_;
};

}  // namespace

Result<PreferenceDictionary> parsePropertyList(std::string_view bytes) {
  if (bytes.size() > kMaximumPropertyListBytes) return tooLong();
  try {
    return bytes.starts_with(kBinaryPropertyListMagic) ? parseBinaryPropertyList(bytes)
                                                       : parseXMLPropertyList(bytes);
  } catch (const std::bad_alloc&) {
    return tooLittleMemory();
  }
}

Result<PreferenceDictionary> readPropertyList(const std::filesystem::path& path) {
  try {
    const auto bytes = readFile(path, kMaximumPropertyListBytes);
    if (!bytes) return bytes.error();
    auto values = parsePropertyList(*bytes);
    if (!values) return Error{path.string() + ": " + values.error().message};
    return values;
  } catch (const std::bad_alloc&) {
    return tooLittleMemory();
  }
}

Result<std::string> propertyListBytes(const PreferenceDictionary& values,
                                      PropertyListFormat format) {
  Extent extent;
  if (!extent.isBounded(values)) {
    return Error{"the property list cannot be made: " + std::string(extent.problem()) +
                 "; remove some first"};
  }
  try {
    auto bytes =
        format == PropertyListFormat::xml ? xmlPropertyList(values) : binaryPropertyList(values);
    if (bytes && bytes->size() > kMaximumPropertyListBytes) return tooLong();
    return bytes;
  } catch (const std::bad_alloc&) {
    return tooLittleMemory();
  }
}

Outcome writePropertyList(const PreferenceDictionary& values, const std::filesystem::path& path,
                          PropertyListFormat format) {
  const auto bytes = propertyListBytes(values, format);
  if (!bytes) return bytes.error();
  return writeFile(path, *bytes);
}

}  // namespace foundation
