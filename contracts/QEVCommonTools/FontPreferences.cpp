#include "QEVCommonTools/FontPreferences.hpp"

#include "appkit/Application.hpp"

#include <cmath>
#include <optional>

namespace QEVCommonTools {

namespace {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferencesStore;
using QEVSettings::PreferenceValue;

constexpr std::string_view kPacketTable = "com_velloquin_zorvantine_fontPacketTable";
constexpr std::string_view kConsoleRaw = "com_velloquin_zorvantine_fontConsoleRaw";
constexpr std::string_view kProtocolDetails = "com_velloquin_zorvantine_fontProtocolDetails";
constexpr std::string_view kBaseProtocolStatistics = "com_velloquin_zorvantine_fontBaseProtocolStatistics";
constexpr std::string_view kDataSourcesList = "com_velloquin_zorvantine_fontDataSourcesList";
constexpr std::string_view kDataSourcesHead = "com_velloquin_zorvantine_fontDataSourcesHead";

// What no font chooser offers is damage.
constexpr double kLargestPointSize = 1000;

const appkit::FontCatalog& machine() { return appkit::Application::sharedApplication().fontCatalog(); }

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
  const bool hasSize = std::isfinite(font.pointSize) && font.pointSize > 0 && font.pointSize <= kLargestPointSize;
  if (font.family.empty() || !hasSize) return std::nullopt;
  return font;
}

appkit::Font textFont(const PreferencesStore& store, std::string_view key) {
  return storedFont(store, key).value_or(machine().systemFont(0));
}

void storeFont(PreferencesStore& store, const appkit::Font& font, std::string_view key) {
  store.setObject(PreferenceDictionary{{"family", font.family}, {"style", font.style}, {"pointSize", font.pointSize}},
                  key);
}

}  // namespace

appkit::Font FontPreferences::com_velloquin_zorvantine_fontPacketTable() const {
  return textFont(*store_, kPacketTable);
}

void FontPreferences::setCom_velloquin_zorvantine_fontPacketTable(const appkit::Font& font) const {
  storeFont(*store_, font, kPacketTable);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontConsoleRaw() const {
  return storedFont(*store_, kConsoleRaw).value_or(machine().fixedPitchFont(0));
}

void FontPreferences::setCom_velloquin_zorvantine_fontConsoleRaw(const appkit::Font& font) const {
  storeFont(*store_, font, kConsoleRaw);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontProtocolDetails() const {
  return textFont(*store_, kProtocolDetails);
}

void FontPreferences::setCom_velloquin_zorvantine_fontProtocolDetails(const appkit::Font& font) const {
  storeFont(*store_, font, kProtocolDetails);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontBaseProtocolStatistics() const {
  return textFont(*store_, kBaseProtocolStatistics);
}

void FontPreferences::setCom_velloquin_zorvantine_fontBaseProtocolStatistics(const appkit::Font& font) const {
  storeFont(*store_, font, kBaseProtocolStatistics);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontDataSourcesList() const {
  return textFont(*store_, kDataSourcesList);
}

void FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesList(const appkit::Font& font) const {
  storeFont(*store_, font, kDataSourcesList);
}

appkit::Font FontPreferences::com_velloquin_zorvantine_fontDataSourcesHead() const {
  return textFont(*store_, kDataSourcesHead);
}

void FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesHead(const appkit::Font& font) const {
  storeFont(*store_, font, kDataSourcesHead);
}

}  // namespace QEVCommonTools
