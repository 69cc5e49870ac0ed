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
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferencesStore;
using QEVSettings::PreferenceValue;

const appkit::FontCatalog& machine() {
  return appkit::Application::sharedApplication().fontCatalog();
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

std::optional<appkit::Font> storedFont(const PreferencesStore& store, std::string_view key) {
  const auto stored = store.objectForKey(key);
  const PreferenceDictionary* values = stored ? stored->asDictionary() : nullptr;
  if (!values) return std::nullopt;
  appkit::Font font{.family = textAt(*values, "family"),
                    .style = textAt(*values, "style"),
                    .pointSize = numberAt(*values, "pointSize")};
  return FontPreferences::isStorable(font) ? std::optional(font) : std::nullopt;
}

appkit::Font textFont(const PreferencesStore& store, std::string_view key) {
  return storedFont(store, key).value_or(machine().systemFont(0));
}

void storeFont(PreferencesStore& store, const appkit::Font& font, std::string_view key) {
  if (!FontPreferences::isStorable(font)) return;
  store.setObject(
      PreferenceDictionary{
          {"family", font.family}, {"style", font.style}, {"pointSize", font.pointSize}},
      key);
}

}  // namespace

bool FontPreferences::isStorable(const appkit::Font& font) {
  return !font.family.empty() && font.pointSize > 0 && font.pointSize <= kLargestPointSize;
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontPacketTable() const {
  return textFont(*store_, kFontPacketTable);
}

void FontPreferences::setCom_velloquin_zorvantine_fontPacketTable(const appkit::Font& font) const {
  storeFont(*store_, font, kFontPacketTable);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontConsoleRaw() const {
  return storedFont(*store_, kFontConsoleRaw).value_or(machine().fixedPitchFont(0));
}

void FontPreferences::setCom_velloquin_zorvantine_fontConsoleRaw(const appkit::Font& font) const {
  storeFont(*store_, font, kFontConsoleRaw);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontProtocolDetails() const {
  return textFont(*store_, kFontProtocolDetails);
}

void FontPreferences::setCom_velloquin_zorvantine_fontProtocolDetails(
    const appkit::Font& font) const {
  storeFont(*store_, font, kFontProtocolDetails);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontBaseProtocolStatistics() const {
  return textFont(*store_, kFontBaseProtocolStatistics);
}

void FontPreferences::setCom_velloquin_zorvantine_fontBaseProtocolStatistics(
    const appkit::Font& font) const {
  storeFont(*store_, font, kFontBaseProtocolStatistics);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontDataSourcesList() const {
  return textFont(*store_, kFontDataSourcesList);
}

void FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesList(
    const appkit::Font& font) const {
  storeFont(*store_, font, kFontDataSourcesList);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontDataSourcesHead() const {
  return textFont(*store_, kFontDataSourcesHead);
}

void FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesHead(
    const appkit::Font& font) const {
  storeFont(*store_, font, kFontDataSourcesHead);
}

}  // namespace QEVCommonTools
