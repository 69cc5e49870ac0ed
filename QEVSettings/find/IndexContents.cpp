// SPDX-License-Identifier: MIT
#include "find/IndexContents.hpp"

#include "QEVSettings/settingName.hpp"
#include "QEVSettings/settingText.hpp"
#include "find/SettingTabs.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace QEVSettings {

namespace {

void addContained(SearchText& text, const AnalyzerSettings& analyzer) {
  if (!analyzer.ports) return;
  for (const auto& protocol : analyzer.ports->defaultPorts) {
    text.add(protocol->protocolName.get(), SettingsIndex::Contents::kContained);
    text.addPorts(protocol->protocolPorts.get(), SettingsIndex::Contents::kContained);
  }
}

constexpr std::string_view kAnalyzerTab = "Analyzer";

bool isShown(const PreferenceDescriptor& setting) {
  return !setting.place.tab.empty() && !setting.place.row.empty();
}

}  // namespace

SettingsIndex::Contents::Contents(std::shared_ptr<const SearchedSettings> settings,
                                  std::function<bool(std::string_view)> hasTab)
    : settings_(std::move(settings)), hasTab_(std::move(hasTab)), revision_(settings_->revision()) {
  addTabs();
  for (PreferenceDescriptor& each : settings_->ownSettings()) {
    if (!isShown(each)) continue;
    if (!each.place.analyzer.empty()) {
      ofAnalyzers_.push_back(std::move(each));
    } else if (const auto group = groupOf(each.place)) {
      addSetting(each, *group, nullptr);
    }
  }
}

void SettingsIndex::Contents::addTabs() {
  for (const SettingTab& tab : settingTabs()) {
    if (hasTab_ && !hasTab_(tab.name)) continue;
    const std::string title = settingText(tab.title);
    SearchText names;
    names.add(title, tab.title, kTab);
    const GroupNumber group = addGroup({.tab = std::string(tab.name)}, std::move(names));
    SearchText text;
    text.add(title, tab.title, kTitle);
    entries_.push_back({.group = group, .text = shared(std::move(text)), .title = title});
  }
}

void SettingsIndex::Contents::addNextAnalyzer() {
  if (isComplete()) return;
  const std::size_t number = nextAnalyzer_++;
  const auto tab = groupOf({.tab = "analyze"});
  if (!tab) return;
  const SearchedAnalyzer analyzer = settings_->analyzer(number);
  const std::string& title = analyzer.settings.title;
  // The first entries are the tabs, one in each of the first groups.
  const std::string tabTitle = entries_.at(*tab).title;
  SearchText names;
  names.add(title, kTab);
  names.add(tabTitle, kAnalyzerTab, 1);
  const GroupNumber group =
      addGroup({.tab = "analyze", .analyzer = title, .number = number}, std::move(names));

  SearchText text;
  text.add(title, kTitle);
  text.add(analyzer.description, analyzer.englishDescription, kDescription);
  addContained(text, analyzer.settings);
  entries_.push_back({.group = group, .text = shared(std::move(text)), .title = title});
  for (const PreferenceDescriptor& each : analyzerDescriptors(analyzer.settings))
    addSetting(each, group, &analyzer.settings);
  for (const PreferenceDescriptor& each : ofAnalyzers_) {
    if (each.place.analyzer == title) addSetting(each, group, nullptr);
  }
}

void SettingsIndex::Contents::addSetting(const PreferenceDescriptor& setting, GroupNumber group,
                                         const AnalyzerSettings* analyzer) {
  const std::string title = withoutColon(settingText(setting.place.row));
  SearchText text;
  text.add(title, withoutColon(setting.place.row), kTitle);
  if (setting.title != setting.place.row)
    text.add(withoutColon(settingText(setting.title)), withoutColon(setting.title), kTitle);
  text.add(settingText(setting.purpose), setting.purpose, kPurpose);
  for (const std::string& each : setting.valueTitles) text.add(settingText(each), each, kValue);
  const bool isPorts =
      analyzer && analyzer->ports && setting.key == analyzer->ports->networkProtocolKey;
  if (isPorts) addContained(text, *analyzer);
  byKey_.try_emplace(setting.key, entries_.size());
  entries_.push_back({.group = group,
                      .text = shared(std::move(text)),
                      .title = title,
                      .row = setting.place.row,
                      .key = setting.key});
  if (isPorts) addProtocols(*analyzer->ports, Entry(entries_.back()));
}

// One result for each protocol: "5353" finds the protocol by its name.
void SettingsIndex::Contents::addProtocols(const QEVDependencies::AnalyzerPortsSpec& ports,
                                           const Entry& row) {
  for (const auto& protocol : ports.defaultPorts) {
    SearchText text;
    text.add(protocol->protocolName.get(), kTitle);
    text.addPorts(protocol->protocolPorts.get(), kValue);
    entries_.push_back({.group = row.group,
                        .text = shared(std::move(text)),
                        .title = protocol->protocolName.get(),
                        .row = row.row,
                        .key = row.key,
                        .rowTitle = row.title});
  }
}

SettingsIndex::Contents::TextNumber SettingsIndex::Contents::shared(SearchText text) {
  const auto [known, isNew] =
      known_.try_emplace(text.identity(), static_cast<TextNumber>(texts_.size()));
  if (isNew) texts_.push_back(std::move(text));
  return known->second;
}

SettingsIndex::Contents::GroupNumber SettingsIndex::Contents::addGroup(Group group,
                                                                       SearchText names) {
  group.names = shared(std::move(names));
  groups_.push_back(std::move(group));
  return static_cast<GroupNumber>(groups_.size() - 1);
}

std::optional<SettingsIndex::Contents::GroupNumber> SettingsIndex::Contents::groupOf(
    const PreferencePlace& place) {
  const auto found = std::ranges::find(groups_, place.tab, &Group::tab);
  if (found == groups_.end()) return std::nullopt;
  return static_cast<GroupNumber>(found - groups_.begin());
}

std::optional<std::size_t> SettingsIndex::Contents::entryOf(std::string_view key) const {
  const auto found = byKey_.find(std::string(key));
  return found != byKey_.end() ? std::optional(found->second) : std::nullopt;
}

std::optional<PreferenceDescriptor> SettingsIndex::Contents::describe(const Entry& entry) const {
  const auto number = groups_[entry.group].number;
  std::vector<PreferenceDescriptor> candidates = settings_->ownSettings();
  if (number && *number < settings_->analyzerCount()) {
    for (PreferenceDescriptor& each : analyzerDescriptors(settings_->analyzer(*number).settings))
      candidates.push_back(std::move(each));
  }
  const auto found = std::ranges::find(candidates, entry.key, &PreferenceDescriptor::key);
  if (found == candidates.end()) return std::nullopt;
  return std::move(*found);
}

}  // namespace QEVSettings
