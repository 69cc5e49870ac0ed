// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceDescriptor.hpp"

#include <algorithm>

namespace QEVSettings {

namespace {

using Type = PreferenceValue::Type;

std::string described(Type type) {
  switch (type) {
    case Type::integer: return "a whole number";
    case Type::boolean: return "true or false";
    case Type::real: return "a number";
    case Type::string: return "text";
    case Type::data: return "bytes";
    case Type::date: return "a date";
    case Type::array: return "an array";
    case Type::dictionary: break;
  }
  return "a dictionary";
}

std::string described(const PreferenceChoices& choices) {
  std::string text;
  for (std::size_t at = 0; at < choices.size(); ++at) {
    if (at > 0) text += at + 1 < choices.size() ? ", " : " or ";
    text += choices[at];
  }
  return text;
}

}  // namespace

std::optional<std::string> misfit(const PreferenceDescriptor& descriptor,
                                  const PreferenceValue& value) {
  const bool isOfType = value.type() == descriptor.type;
  if (const auto* range = std::get_if<IntegerRange>(&descriptor.limits)) {
    const auto number = value.asInteger();
    if (number && *number >= range->lowest && *number <= range->highest) return std::nullopt;
    return "a whole number from " + std::to_string(range->lowest) + " to " +
           std::to_string(range->highest);
  }
  if (const auto* choices = std::get_if<PreferenceChoices>(&descriptor.limits)) {
    const std::string* text = value.asString();
    if (text != nullptr && std::ranges::find(*choices, *text) != choices->end())
      return std::nullopt;
    return described(*choices);
  }
  if (descriptor.rule) return descriptor.rule(value);
  return isOfType ? std::nullopt : std::optional(described(descriptor.type));
}

}  // namespace QEVSettings
