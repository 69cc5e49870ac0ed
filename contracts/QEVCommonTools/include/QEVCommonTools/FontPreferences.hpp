#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "appkit/Font.hpp"

#include <string_view>

namespace QEVCommonTools {

// The interface fonts of a preferences store, each a property named exactly like its key.
//
//     FontPreferences fonts(store);
//     fonts.setCom_velloquin_zorvantine_fontConsoleRaw({.family = "Noto Sans Mono", .pointSize =
//     11}); fonts.com_velloquin_zorvantine_fontConsoleRaw();  // the same font, in every process
//
// A getter always yields a font: the machine's own, of fixed pitch for the console, while nothing
// is stored or what is stored describes no font. A setter writes at once. A font is stored as a
// dictionary: "family" and "style", text, and "pointSize", a number. A font that `isStorable`
// refuses is not stored: the key keeps its value. The store outlives the value.
class FontPreferences {
public:
  explicit FontPreferences(QEVSettings::PreferencesStore& store) : store_(&store) {}

  static constexpr double kLargestPointSize = 1000;
  // Whether a getter gives the font back after a setter stored it: it has a family, and a size
  // above 0 and up to kLargestPointSize.
  static bool isStorable(const appkit::Font& font);

  appkit::Font com_velloquin_zorvantine_fontPacketTable() const;
  void setCom_velloquin_zorvantine_fontPacketTable(const appkit::Font& font) const;

  appkit::Font com_velloquin_zorvantine_fontConsoleRaw() const;
  void setCom_velloquin_zorvantine_fontConsoleRaw(const appkit::Font& font) const;

  appkit::Font com_velloquin_zorvantine_fontProtocolDetails() const;
  void setCom_velloquin_zorvantine_fontProtocolDetails(const appkit::Font& font) const;

  appkit::Font com_velloquin_zorvantine_fontBaseProtocolStatistics() const;
  void setCom_velloquin_zorvantine_fontBaseProtocolStatistics(const appkit::Font& font) const;

  appkit::Font com_velloquin_zorvantine_fontDataSourcesList() const;
  void setCom_velloquin_zorvantine_fontDataSourcesList(const appkit::Font& font) const;

  appkit::Font com_velloquin_zorvantine_fontDataSourcesHead() const;
  void setCom_velloquin_zorvantine_fontDataSourcesHead(const appkit::Font& font) const;

private:
  QEVSettings::PreferencesStore* store_;
};

}  // namespace QEVCommonTools
