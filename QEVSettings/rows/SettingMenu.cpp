// SPDX-License-Identifier: MIT
#include "rows/SettingMenu.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVSettings/settingText.hpp"
#include "appkit/Pasteboard.hpp"
#include "resources/resource_bundle_accessor.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace QEVSettings {

using viewkit::MenuItem;

namespace {

constexpr std::size_t kLongestDefault = 40;

}  // namespace

std::vector<MenuItem> SettingMenu::items(std::function<void()> explain) const {
  std::vector<MenuItem> items;
  const std::vector<std::string> changeable = changeableKeys();
  if (writer && !changeable.empty()) {
    const auto hasValue = [&](const std::string& key) {
      return store.get().personLayer().find(key) != nullptr;
    };
    items.push_back({.title = resetTitle(),
                     .action = [menu = *this] { menu.reset(); },
                     .isEnabled = std::ranges::any_of(changeable, hasValue)});
  }
  items.push_back({.title = localized("Copy Key"), .action = [keys = keys] {
                     std::string text;
                     for (const std::string& key : keys) text += (text.empty() ? "" : "\n") + key;
                     appkit::Pasteboard::general().setString(std::move(text));
                   }});
  if (!explanations().empty())
    items.push_back({.title = localized("What Is This?"), .action = std::move(explain)});
  return items;
}

std::vector<SettingExplanation> SettingMenu::explanations() const {
  std::vector<SettingExplanation> settings;
  for (const std::string& key : keys) {
    if (const auto* descriptor = catalogue->find(key)) settings.emplace_back(*descriptor, store);
  }
  return settings;
}

std::vector<std::string> SettingMenu::changeableKeys() const {
  std::vector<std::string> changeable;
  for (const std::string& key : keys) {
    if (!store.get().isLocked(key)) changeable.push_back(key);
  }
  return changeable;
}

// With the default of the row's first setting, which is the one that the row is named after.
std::string SettingMenu::resetTitle() const {
  const auto* descriptor = catalogue->find(keys.front());
  const std::string standard = descriptor ? defaultText(*descriptor) : std::string();
  return standard.empty() ? localized("Reset to Default")
                          : QEVCommonTools::formatted(localized("Reset to Default (%@)"),
                                                      {firstCharacters(standard, kLongestDefault)});
}

// A refusal is shown by the page, which follows the writer.
void SettingMenu::reset() const { writer->resetAll(changeableKeys()); }

}  // namespace QEVSettings
