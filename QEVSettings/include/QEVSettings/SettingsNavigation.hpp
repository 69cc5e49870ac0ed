// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/ObservableObject.hpp"
#include "viewkit/ScrollView.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace QEVSettings {

// Leads the user of one settings window to a setting. An object of the environment of the window's
// views. Main thread.
//
//     const auto navigation = Environment::current().object<SettingsNavigation>();
//     navigation->show("com_velloquin_qev_dns_checksums");
class SettingsNavigation : public foundation::ObservableObject {
public:
  // `catalogue` says where the user finds a setting. The store outlives the navigation, and gets
  // the selection of the analyzer.
  SettingsNavigation(std::shared_ptr<SettingsCatalogue> catalogue, PreferencesStore& store);

  // Opens the tab of the setting and selects its analyzer as a click would. The row of the setting
  // is scrolled into sight and tinted, and its first control gets the keyboard. Returns false, and
  // does nothing, for a key that no page of the window shows.
  bool show(std::string_view key);
  // Opens the place and, with a key, goes to its row.
  bool show(const PreferencePlace& place, std::string_view key = {});

  // The same without the keyboard, which stays where it is.
  bool reveal(std::string_view key);

  // The setting whose row is tinted; empty for none. The tint ends after two seconds. Where motion
  // is reduced, it lasts until the next key press, change of a setting or other tab.
  const std::string& highlightedKey() const { return highlightedKey_; }
  // Ends the tint.
  void endHighlight();

  // Gives the keyboard to the first control in the view of the window with this id.
  void focus(std::string_view id) const;

  // The settings that the window knows.
  const std::shared_ptr<SettingsCatalogue>& catalogue() const { return catalogue_; }

  // The identity of the row of a setting in the window's tree.
  static std::string rowId(std::string_view key);

  // How the navigation operates its window; the window's root view says it. `selectTab` gets the
  // name of a tab, and returns whether the window has it.
  struct Window {
    viewkit::ScrollProxy views;
    std::function<bool(std::string_view tab)> selectTab;
    bool reducedMotion = false;
  };
  void setWindow(Window window) { window_ = std::move(window); }
  // What ends the tint where motion is reduced. Called by the window's root view.
  void keyWasPressed();
  void tabWasSelected(std::string_view tab);

private:
  bool isTintedUntilAction() const;
  bool open(const PreferencePlace& place, std::string_view key);
  void highlight(std::string_view key, std::string_view tab);
  bool selectAnalyzer(std::string_view title);

  std::shared_ptr<SettingsCatalogue> catalogue_;
  PreferencesStore& store_;
  std::optional<Window> window_;
  std::string highlightedKey_;
  std::string highlightedTab_;
  foundation::Subscription timer_;
  foundation::Subscription changes_;
};

}  // namespace QEVSettings
