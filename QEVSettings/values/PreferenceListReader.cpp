// SPDX-License-Identifier: MIT
#include "QEVSettings/PreferenceListReader.hpp"

#include "QEVSettings/ValueReader.hpp"
#include "foundation/JSON.hpp"
#include "foundation/PropertyList.hpp"
#include "foundation/Translation.hpp"

#include <limits>
#include <optional>
#include <string_view>
#include <utility>

namespace QEVSettings {

using foundation::Error;
using foundation::JSON;
using foundation::Result;
using foundation::translated;
using Type = PreferenceValue::Type;

namespace {

std::optional<Type> typeNamed(std::string_view name) {
  for (const Type type : {Type::integer, Type::boolean, Type::real, Type::string, Type::data,
                          Type::date, Type::array, Type::dictionary}) {
    if (nameOf(type) == name) return type;
  }
  return std::nullopt;
}

// The text of a value as `prefs set` takes it; nothing when the JSON is of another kind.
std::optional<std::string> typedText(Type type, const JSON& json) {
  switch (type) {
    case Type::boolean:
      if (const auto boolean = json.asBoolean()) return *boolean ? "true" : "false";
      return std::nullopt;
    case Type::integer:
    case Type::real:
      if (const auto number = json.numberText()) return std::string(*number);
      // A real that is not finite is written as text.
      return type == Type::real ? json.asString() : std::nullopt;
    default: return json.asString();
  }
}

Result<PreferenceValue> readTyped(Type type, const JSON& json) {
  if (type == Type::array || type == Type::dictionary) {
    const bool matches = type == Type::array ? json.isArray() : json.isObject();
    if (!matches) return Error{translated("the value is not of the type %1", {nameOf(type)})};
    return preferenceOf(json);
  }
  const auto text = typedText(type, json);
  if (!text) return Error{translated("the value is not of the type %1", {nameOf(type)})};
  if (type == Type::real && *text == "nan")
    return PreferenceValue(std::numeric_limits<double>::quiet_NaN());
  return readValue(type, *text);
}

Result<PreferenceValue> readEntry(const JSON& entry) {
  const auto name = entry.member("type");
  const auto value = entry.member("value");
  const auto type = name ? typeNamed(name->asString().value_or("")) : std::nullopt;
  if (!type || !value)
    return Error{
        translated("the entry has no type and value such as prefs list --format json prints")};
  return readTyped(*type, *value);
}

bool isEntry(const JSON& json) {
  return json.isObject() && json.member("type") && json.member("value") &&
         typeNamed(json.member("type")->asString().value_or(""));
}

Result<PreferenceValue> readEntryOrValue(const JSON& json) {
  return isEntry(json) ? readEntry(json) : preferenceOf(json);
}

Result<PreferenceDictionary> readJSONList(std::string text,
                                          Result<PreferenceValue> (*read)(const JSON&)) {
  const auto list = JSON::parse(std::move(text));
  if (!list) return Error{translated("the list is not JSON: %1", {list.error().message})};
  PreferenceDictionary preferences;
  for (const JSON::Member& member : list->members()) {
    auto value = read(member.value);
    if (!value) return Error{"“" + member.name + "”: " + value.error().message};
    preferences.insert_or_assign(member.name, *std::move(value));
  }
  return preferences;
}

bool isJSON(std::string_view bytes) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
  const std::size_t start = bytes.find_first_not_of(" \t\r\n");
  return start != std::string_view::npos && bytes[start] == '{';
}

}  // namespace

Result<PreferenceDictionary> readPreferenceList(std::string bytes) {
  return isJSON(bytes) ? readJSONList(std::move(bytes), readEntry)
                       : foundation::parsePropertyList(bytes);
}

Result<PreferenceDictionary> readWrittenPreferenceList(std::string bytes) {
  return isJSON(bytes) ? readJSONList(std::move(bytes), readEntryOrValue)
                       : foundation::parsePropertyList(bytes);
}

}  // namespace QEVSettings
