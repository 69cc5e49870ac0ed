// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferenceDescriptor.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// An analyzer as a search sees it.
//
//     SearchedAnalyzer{.description = "Names and addresses", .settings = {.title = "DNS"}}
struct SearchedAnalyzer {
  // Shown and searched; in the user's language.
  std::string description;
  // In English, where that is another text.
  std::string englishDescription = {};
  AnalyzerSettings settings;
};

// What a search looks through: the settings of a program, and its analyzers in the order of their
// list. Main thread.
//
//     SearchedAnalyzer PlugInSettings::analyzer(std::size_t number) const {
//       return {.description = plugIns_.at(number).description,
//               .settings = {.title = plugIns_.at(number).title}};
//     }
class SearchedSettings {
public:
  SearchedSettings() = default;
  SearchedSettings(const SearchedSettings&) = delete;
  SearchedSettings& operator=(const SearchedSettings&) = delete;
  virtual ~SearchedSettings() = default;

  // The settings that belong to no analyzer, or to one that does not describe them itself.
  virtual std::vector<PreferenceDescriptor> ownSettings() const = 0;
  virtual std::size_t analyzerCount() const = 0;
  virtual SearchedAnalyzer analyzer(std::size_t number) const = 0;
  // Another number when analyzers were added or removed.
  virtual std::uint64_t revision() const { return 0; }
};

// The settings of the catalogue and the analyzers that are registered.
std::shared_ptr<const SearchedSettings> registeredSettings(
    std::shared_ptr<SettingsCatalogue> catalogue);

// A place in the settings window that fits a search: a row, an analyzer or a tab.
// See SettingsIndex.
struct FoundSetting {
  // In the user's language.
  std::string title;
  PreferencePlace place;
  // Empty for an analyzer or a tab.
  std::string key;
  // The title of the row that shows the result, where that is another: a protocol stands in the row
  // of the ports.
  std::string rowTitle = {};

  friend bool operator==(const FoundSetting& a, const FoundSetting& b) {
    return a.title == b.title && a.key == b.key && a.place.tab == b.place.tab &&
           a.place.analyzer == b.place.analyzer;
  }
};

// The result of a search.
//
//     const FoundSettings found = index.find("dns checksum", store, 20);
//     if (found.count > found.best.size()) show(std::to_string(found.count) + " settings fit");
struct FoundSettings {
  // The best first.
  std::vector<FoundSetting> best;
  // Of all that fit.
  std::size_t count = 0;
};

// Where the user finds a result, in the user's language: "Analyzer › DNS", or "Analyzer › DNS ›
// Ports" for a protocol. Empty for a tab.
std::string placeText(const FoundSetting& found);

// An index of the settings window: titles, purposes, tabs, analyzers with their descriptions and
// protocols, ports, and values. A search ignores case and accents, and looks in the user's language
// and in English. Main thread.
//
//     SettingsIndex index(registeredSettings(catalogue));
//     index.complete();
//     for (const FoundSetting& each : index.find("dns checksum", store, 20).best) show(each);
class SettingsIndex {
public:
  // `hasTab` says which tabs the window has.
  explicit SettingsIndex(std::shared_ptr<const SearchedSettings> settings,
                         std::function<bool(std::string_view tab)> hasTab = {});
  ~SettingsIndex();

  // Takes analyzers into the index for about this long. A search finds what is taken in so far.
  // Returns whether the index is complete.
  bool extend(std::chrono::microseconds time);
  void complete();
  bool isComplete() const;
  // Whether analyzers were added or removed since the index was begun.
  bool isOutdated() const;

  // What has each word of the text somewhere. A number also fits a range of ports that it lies in.
  // The word "is:changed" stands for the settings whose value in the person's layer differs from
  // the default. Values are those of the store. At most `most` are returned, all are counted.
  // Nothing fits an empty text.
  FoundSettings find(std::string_view text, PreferencesStore& store, std::size_t most) const;

  class Contents;

private:
  std::unique_ptr<Contents> contents_;
};

// The word of a query that stands for changed settings.
inline constexpr std::string_view kChangedSettings = "is:changed";

}  // namespace QEVSettings
