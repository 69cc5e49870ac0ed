// SPDX-License-Identifier: MIT
#include "catalogue/SettingValues.hpp"

#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "QEVSettings/ValueReader.hpp"
#include "catalogue/HostSettings.hpp"
#include "commandline/Arguments.hpp"
#include "commandline/TextForm.hpp"

#include <vector>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::Result;
using QEVSettings::PreferenceDescriptor;
using QEVSettings::PreferenceValue;
using Type = PreferenceValue::Type;

namespace {

Result<PreferenceValue> readTyped(const PreferenceDescriptor& descriptor, std::string_view text) {
  const Type type = descriptor.type;
  if (type == Type::array || type == Type::dictionary) return QEVSettings::readJSONValue(text);
  // A list of protocols is stored as the bytes of its JSON.
  if (type == Type::data && text.starts_with('['))
    return PreferenceValue(PreferenceValue::Bytes(text.begin(), text.end()));
  return QEVSettings::readValue(type, text);
}

Error wrong(const PreferenceDescriptor& descriptor, const std::string& wanted) {
  return Error{"“" + descriptor.key + "” (" + descriptor.title + ") has to be " + wanted};
}

}  // namespace

Result<PreferenceValue> valueFor(const PreferenceDescriptor& descriptor, std::string_view text) {
  auto value = readTyped(descriptor, text);
  if (!value) {
    // A value of another type is never one that fits.
    const PreferenceValue other =
        descriptor.type == Type::string ? PreferenceValue(0) : PreferenceValue("");
    return wrong(descriptor,
                 misfit(descriptor, other).value_or(std::string(nameOf(descriptor.type))));
  }
  if (const auto wanted = misfit(descriptor, *value)) return wrong(descriptor, *wanted);
  return value;
}

Outcome checkValue(const PreferenceDescriptor& descriptor, const PreferenceValue& value) {
  const auto wanted = misfit(descriptor, value);
  if (!wanted || QEVSettings::colorAsText(descriptor.key, value) ||
      QEVSettings::protocolListWithPortsAsText(descriptor.key, value)) {
    return done();
  }
  return wrong(descriptor, *wanted);
}

std::string limitsOf(const PreferenceDescriptor& descriptor) {
  if (const auto* range = std::get_if<QEVSettings::IntegerRange>(&descriptor.limits))
    return std::to_string(range->lowest) + " to " + std::to_string(range->highest);
  if (const auto* choices = std::get_if<QEVSettings::PreferenceChoices>(&descriptor.limits))
    return alternatives({choices->begin(), choices->end()});
  return "";
}

std::string suggestionFor(std::string_view key) {
  std::vector<std::string> near = hostCatalogue().nearMisses(key);
  if (near.empty()) return "";
  for (std::string& each : near) each.insert(0, "“").append("”");
  return "did you mean " + alternatives({near.begin(), near.end()}) + "?";
}

}  // namespace zorvantine
