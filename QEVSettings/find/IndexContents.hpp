// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingsIndex.hpp"
#include "find/SearchText.hpp"
#include "find/WordWorths.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace QEVSettings {

// The contents of the index. Rows that are found by the same words share one text, so that a search
// through ten thousand analyzers with the same options compares few texts.
class SettingsIndex::Contents {
public:
  using TextNumber = std::uint32_t;
  using GroupNumber = std::uint32_t;

  // What a word in a text is worth.
  enum Worth : int {
    kPurpose = 2,
    kContained = 2,
    kDescription = 3,
    kTab = 4,
    kValue = 5,
    kTitle = 8
  };

  // A tab, or an analyzer: what its rows have in common.
  struct Group {
    std::string tab;
    std::string analyzer = {};
    // The names of the tab and the analyzer, which are words of each of their rows too.
    TextNumber names = 0;
    // The number of the analyzer among the searched settings; none for a tab.
    std::optional<std::size_t> number = std::nullopt;
  };

  // A row or a protocol in it, or with an empty key the analyzer or tab itself.
  struct Entry {
    GroupNumber group;
    TextNumber text;
    std::string title;
    std::string row = {};
    std::string key = {};
    // Of a protocol: the title of the row.
    std::string rowTitle = {};
  };

  Contents(std::shared_ptr<const SearchedSettings> settings,
           std::function<bool(std::string_view)> hasTab);

  bool isComplete() const { return nextAnalyzer_ >= settings_->analyzerCount(); }
  bool isOutdated() const { return settings_->revision() != revision_; }
  void addNextAnalyzer();

  std::vector<std::shared_ptr<const WordWorths::Worths>> worthsOf(
      const std::vector<std::string>& words) {
    return words_.of(words, texts_);
  }
  const std::vector<SearchText>& texts() const { return texts_; }
  const std::vector<Group>& groups() const { return groups_; }
  const std::vector<Entry>& entries() const { return entries_; }
  // The number of the entry of a key.
  std::optional<std::size_t> entryOf(std::string_view key) const;
  // The descriptor of an entry; nothing when its analyzer no longer describes it.
  std::optional<PreferenceDescriptor> describe(const Entry& entry) const;

private:
  TextNumber shared(SearchText text);
  GroupNumber addGroup(Group group, SearchText names);
  void addTabs();
  void addSetting(const PreferenceDescriptor& setting, GroupNumber group,
                  const AnalyzerSettings* analyzer);
  void addProtocols(const QEVDependencies::AnalyzerPortsSpec& ports, const Entry& row);
  // The group of a place; nothing for a place that the window does not have.
  std::optional<GroupNumber> groupOf(const PreferencePlace& place);

  std::shared_ptr<const SearchedSettings> settings_;
  std::function<bool(std::string_view)> hasTab_;
  std::uint64_t revision_;
  std::size_t nextAnalyzer_ = 0;
  // The settings of the host that stand on the page of an analyzer.
  std::vector<PreferenceDescriptor> ofAnalyzers_;

  std::vector<SearchText> texts_;
  WordWorths words_;
  std::unordered_map<std::string, TextNumber> known_;
  std::vector<Group> groups_;
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> byKey_;
};

}  // namespace QEVSettings
