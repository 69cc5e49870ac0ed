// SPDX-License-Identifier: MIT
#include "QEVSettings/settingText.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/localized.hpp"
#include "QEVSettings/SettingDefault.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/JSON.hpp"
#include "resources/resource_bundle_accessor.hpp"

#include <cstddef>
#include <optional>

namespace QEVSettings {

using foundation::Bundle;
using foundation::JSON;
using Type = PreferenceValue::Type;

namespace {

std::string textAt(const JSON& record, const char* name) {
  const auto member = record.member(name);
  return member ? member->text() : std::string();
}

std::string protocolsText(const PreferenceValue::Bytes& bytes) {
  const auto list = JSON::parse({bytes.begin(), bytes.end()});
  if (!list || !list->isArray()) return {};
  std::string text;
  for (const JSON& record : list->elements()) {
    if (!text.empty()) text += ", ";
    text += textAt(record, "protocolName") + " " + textAt(record, "protocolPorts");
  }
  return text;
}

std::string fontText(const PreferenceDictionary& font) {
  std::string text;
  for (const char* name : {"family", "style", "pointSize"}) {
    const auto found = font.find(name);
    const auto part = found != font.end() ? found->second.convertedToString() : std::nullopt;
    if (!part || part->empty()) continue;
    if (!text.empty()) text += ' ';
    text += *part;
  }
  return text;
}

}  // namespace

std::string settingText(std::string_view key) {
  std::string text = localized(key);
  if (text == key) text = QEVCommonTools::localized(key);
  return text == key ? Bundle::mainBundle().localizedString(key) : text;
}

std::string valueText(const PreferenceDescriptor& descriptor, const PreferenceValue& value) {
  if (descriptor.type == Type::boolean)
    return localized(value.convertedToBoolean().value_or(false) ? "On" : "Off");
  if (descriptor.key == kAppearanceName.name) {
    const std::string* name = value.asString();
    return localized(name && *name == kAppearanceNameAqua ? "Light" : "Dark");
  }
  if (const auto* bytes = value.asData()) return protocolsText(*bytes);
  if (const auto* font = value.asDictionary()) return fontText(*font);
  const std::string text = value.convertedToString().value_or("");
  return text.empty() ? localized("Empty") : text;
}

std::string defaultText(const PreferenceDescriptor& descriptor) {
  if (const auto standard = defaultOf(descriptor)) return valueText(descriptor, *standard);
  if (descriptor.key == kFontConsoleRaw.name) return localized("Monospaced system font");
  if (descriptor.type == Type::dictionary) return localized("System font");
  // Of an analyzer's settings only the colour is a text without a default.
  const bool isColor = descriptor.type == Type::string && !descriptor.place.analyzer.empty();
  return isColor ? localized("Random color") : std::string();
}

std::string originText(const PreferencesStore& store, std::string_view key) {
  switch (store.origin(key)) {
    case PreferenceOrigin::locked: return QEVCommonTools::managedText();
    case PreferenceOrigin::commandLine: return localized("Set on the command line for this run");
    case PreferenceOrigin::user: return localized("Set by you");
    case PreferenceOrigin::administrator: return localized("Set by your organization");
    case PreferenceOrigin::standard: break;
  }
  return localized("Default");
}

std::string firstCharacters(const std::string& text, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t seen = 0; end < text.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && seen++ == count) return text.substr(0, end) + "…";
  }
  return text;
}

}  // namespace QEVSettings
