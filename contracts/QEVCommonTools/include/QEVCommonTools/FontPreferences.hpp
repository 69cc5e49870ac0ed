// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "appkit/Font.hpp"

namespace QEVCommonTools {

// The interface fonts of a preferences store. Each font is a property with the name of its key.
//
//     FontPreferences fonts(store);
//     fonts.setCom_velloquin_zorvantine_fontConsoleRaw({.family = "Mono", .pointSize = 11});
//     fonts.com_velloquin_zorvantine_fontConsoleRaw();  // the same font, in every process
//
// A getter always returns a font. It is the default of the key while the store holds no font there.
// A setter writes at once, and ignores a font that `isStorable` refuses.
//
// The stored form is a dictionary: "family" and "style" are text, "pointSize" is a number.
//
// The store must outlive this object. Main thread.
class FontPreferences {
public:
  explicit FontPreferences(QEVSettings::PreferencesStore& store) : store_(&store) {}

  static constexpr double kLargestPointSize = 1000;
  // Whether a font can be stored: it has a family, and a size above 0 and up to kLargestPointSize.
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
  appkit::Font font(const QEVSettings::FontKey& key) const;
  void setFont(const appkit::Font& font, const QEVSettings::FontKey& key) const;

  QEVSettings::PreferencesStore* store_;
};

}  // namespace QEVCommonTools
