// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceCatalogue.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <array>
#include <limits>

namespace QEVSettings {

namespace {

using Type = PreferenceValue::Type;

constexpr double kLargestPointSize = 1000;

std::optional<std::string> fontRule(const PreferenceValue& value) {
  const auto* font = value.asDictionary();
  const auto entry = [&](const char* name) -> const PreferenceValue* {
    const auto found = font != nullptr ? font->find(name) : PreferenceDictionary::const_iterator();
    return font != nullptr && found != font->end() ? &found->second : nullptr;
  };
  const auto* family = entry("family");
  const auto* size = entry("pointSize");
  const double points =
      size == nullptr ? 0
                      : size->asReal().value_or(static_cast<double>(size->asInteger().value_or(0)));
  const bool hasFamily =
      family != nullptr && family->asString() != nullptr && !family->asString()->empty();
  if (hasFamily && points > 0 && points <= kLargestPointSize) return std::nullopt;
  return "a font, such as {\"family\": \"Mono\", \"style\": \"Regular\", \"pointSize\": 11}, of at "
         "most 1000 points";
}

std::optional<std::string> textRule(const PreferenceValue& value) {
  const std::string* text = value.asString();
  if (text != nullptr && !text->empty()) return std::nullopt;
  return "a time zone, such as Europe/Berlin";
}

PreferenceDescriptor font(const FontKey& key, const char* row, const char* purpose) {
  return {.key = std::string(key.name),
          .type = Type::dictionary,
          .rule = fontRule,
          .title = row,
          .purpose = purpose,
          .place = {.tab = "appearance", .row = row}};
}

// The one table of the keys with fixed names.
std::vector<PreferenceDescriptor> fixedDescriptors() {
  return {
      {.key = std::string(kPrefsSchemaVersion.name),
       .type = Type::integer,
       .defaultValue = kPrefsSchemaVersion.defaultValue,
       .title = "Schema of the preferences",
       .purpose = "The form that stored values have; only the migration at launch writes it.",
       .isLockable = false},
      {.key = std::string(kAnalyzerSelectedIndex.name),
       .type = Type::integer,
       .defaultValue = kAnalyzerSelectedIndex.defaultValue,
       .limits = IntegerRange{0, std::numeric_limits<std::int32_t>::max()},
       .title = "Selected analyzer",
       .purpose = "The place of the selected analyzer in the list of analyzers, counted from 0.",
       .place = {.tab = "analyze"},
       .isLockable = false},
      {.key = std::string(kAppearanceName.name),
       .type = Type::string,
       .defaultValue = kAppearanceName.defaultValue,
       .limits = PreferenceChoices{kAppearanceNameAqua, kAppearanceNameDarkAqua},
       .title = "Appearance",
       .purpose = "The colours of the windows, light or dark, unless they follow the system.",
       .valueTitles = {"Light", "Dark", "Auto"},
       .place = {.tab = "general", .row = "Appearance"}},
      {.key = std::string(kAppearanceUseSystem.name),
       .type = Type::boolean,
       .defaultValue = kAppearanceUseSystem.defaultValue,
       .title = "Appearance of the system",
       .purpose = "Whether the windows are light or dark as the system is.",
       .place = {.tab = "general", .row = "Appearance"}},
      {.key = std::string(kPrefTimezoneString.name),
       .type = Type::string,
       .rule = textRule,
       .title = "Packet time zone",
       .purpose = "The time zone in which the times of packets are shown.",
       .place = {.tab = "general", .row = "Packet time zone"}},
      font(kFontPacketTable, "Packets List Font:", "The font of the list of packets."),
      font(kFontConsoleRaw, "Console Font:",
           "The font of the console, where a monospaced font keeps columns straight."),
      font(kFontProtocolDetails, "Protocol Details:", "The font of a packet's details."),
      font(kFontBaseProtocolStatistics,
           "Protocol Statistics Font:", "The font of the protocol statistics."),
      font(kFontDataSourcesList,
           "Data Sources List Font:", "The font of the list of data sources."),
      font(kFontDataSourcesHead,
           "Data Sources Header Font:", "The font above the list of data sources."),
      {.key = std::string(kKeepsHistory.name),
       .type = Type::boolean,
       .defaultValue = kKeepsHistory.defaultValue,
       .title = "History of changes",
       .purpose = "Whether the changes of settings are remembered, so that they can be put back."},
  };
}

}  // namespace

PreferenceCatalogue fixedCatalogue() {
  PreferenceCatalogue catalogue;
  // A test checks that the table has no problem.
  for (PreferenceDescriptor& each : fixedDescriptors())
    static_cast<void>(catalogue.add(std::move(each)));
  return catalogue;
}

}  // namespace QEVSettings
