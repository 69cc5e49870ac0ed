// SPDX-License-Identifier: MIT
#include "QEVCommonTools/FontPreferences.hpp"

#include "QEVKonstantsKeys/Keys.hpp"
#include "appkit/Application.hpp"

#include <optional>

namespace QEVCommonTools {

namespace {

using QEVKonstantsKeys::kFontBaseProtocolStatistics;
using QEVKonstantsKeys::kFontConsoleRaw;
using QEVKonstantsKeys::kFontDataSourcesHead;
using QEVKonstantsKeys::kFontDataSourcesList;
using QEVKonstantsKeys::kFontPacketTable;
using QEVKonstantsKeys::kFontProtocolDetails;
using QEVSettings::FontKey;
using QEVSettings::MachineDefault;
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferencesStore;

// Size 0 stands for the size that the machine itself uses.
appkit::Font machineFont(MachineDefault font) {
  const auto& fonts = appkit::Application::sharedApplication().fontCatalog();
  return font == MachineDefault::fixedPitchFont ? fonts.fixedPitchFont(0) : fonts.systemFont(0);
}

std::string textAt(const PreferenceDictionary& values, std::string_view name) {
  const auto found = values.find(name);
  const std::string* text = found != values.end() ? found->second.asString() : nullptr;
  return text ? *text : std::string();
}

double numberAt(const PreferenceDictionary& values, std::string_view name) {
  const auto found = values.find(name);
  if (found == values.end()) return 0;
  if (const auto real = found->second.asReal()) return *real;
  return static_cast<double>(found->second.asInteger().value_or(0));
}

std::optional<appkit::Font> storedFont(const PreferencesStore& store, const FontKey& key) {
  const auto stored = store.objectForKey(key.name);
  const PreferenceDictionary* values = stored ? stored->asDictionary() : nullptr;
  if (!values) return std::nullopt;
  appkit::Font font{.family = textAt(*values, "family"),
                    .style = textAt(*values, "style"),
                    .pointSize = numberAt(*values, "pointSize")};
  return FontPreferences::isStorable(font) ? std::optional(font) : std::nullopt;
}

}  // namespace

bool FontPreferences::isStorable(const appkit::Font& font) {
  return !font.family.empty() && font.pointSize > 0 && font.pointSize <= kLargestPointSize;
}

appkit::Font FontPreferences::font(const FontKey& key) const {
  const auto stored = storedFont(*store_, key);
  return stored ? *stored : machineFont(key.defaultValue);
}

void FontPreferences::setFont(const appkit::Font& font, const FontKey& key) const {
  if (!isStorable(font)) return;
  store_->setObject(
      PreferenceDictionary{
          {"family", font.family}, {"style", font.style}, {"pointSize", font.pointSize}},
      key.name);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontPacketTable() const {
  return font(kFontPacketTable);
}

void FontPreferences::setCom_velloquin_zorvantine_fontPacketTable(const appkit::Font& font) const {
  setFont(font, kFontPacketTable);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontConsoleRaw() const {
  return font(kFontConsoleRaw);
}

void FontPreferences::setCom_velloquin_zorvantine_fontConsoleRaw(const appkit::Font& font) const {
  setFont(font, kFontConsoleRaw);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontProtocolDetails() const {
  return font(kFontProtocolDetails);
}

void FontPreferences::setCom_velloquin_zorvantine_fontProtocolDetails(
    const appkit::Font& font) const {
  setFont(font, kFontProtocolDetails);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontBaseProtocolStatistics() const {
  return font(kFontBaseProtocolStatistics);
}

void FontPreferences::setCom_velloquin_zorvantine_fontBaseProtocolStatistics(
    const appkit::Font& font) const {
  setFont(font, kFontBaseProtocolStatistics);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontDataSourcesList() const {
  return font(kFontDataSourcesList);
}

void FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesList(
    const appkit::Font& font) const {
  setFont(font, kFontDataSourcesList);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontDataSourcesHead() const {
  return font(kFontDataSourcesHead);
}

void FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesHead(
    const appkit::Font& font) const {
  setFont(font, kFontDataSourcesHead);
}

}  // namespace QEVCommonTools
