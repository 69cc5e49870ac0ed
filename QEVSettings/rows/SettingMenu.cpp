// SPDX-License-Identifier: MIT
#include "rows/SettingMenu.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "appkit/Pasteboard.hpp"
#include "catalogue/settingText.hpp"
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
  if (writer && !isLocked()) {
    items.push_back({.title = resetTitle(),
                     .action = [menu = *this] { menu.reset(); },
                     .isEnabled = hasValueOfUser()});
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
    if (const auto* descriptor = catalogue->current().find(key))
      settings.emplace_back(*descriptor, store);
  }
  return settings;
}

bool SettingMenu::isLocked() const {
  return std::ranges::any_of(keys,
                             [&](const std::string& key) { return store.get().isLocked(key); });
}

bool SettingMenu::hasValueOfUser() const {
  return std::ranges::any_of(
      keys, [&](const std::string& key) { return store.get().personLayer().find(key) != nullptr; });
}

// With the default of the row's first setting, which is the one that the row is named after.
std::string SettingMenu::resetTitle() const {
  const auto* descriptor = catalogue->current().find(keys.front());
  const std::string standard = descriptor ? defaultText(*descriptor) : std::string();
  return standard.empty() ? localized("Reset to Default")
                          : QEVCommonTools::formatted(localized("Reset to Default (%@)"),
                                                      {firstCharacters(standard, kLongestDefault)});
}

// A refusal is shown by the page, which follows the writer.
void SettingMenu::reset() const {
  std::vector<SettingWriter::Setting> settings;
  for (const std::string& key : keys) settings.push_back({.key = key, .value = std::nullopt});
  writer->writeAll(settings);
}

}  // namespace QEVSettings
