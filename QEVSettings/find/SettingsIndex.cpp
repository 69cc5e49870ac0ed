// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsIndex.hpp"

#include "QEVSettings/settingText.hpp"
#include "find/IndexContents.hpp"
#include "find/SettingTabs.hpp"
#include "find/StoredValues.hpp"

#include <algorithm>
#include <span>
#include <utility>

namespace QEVSettings {

using Contents = SettingsIndex::Contents;

namespace {

// For a text that is the whole query.
constexpr int kWholeQuery = 100;

struct Fitting {
  int worth;
  std::size_t entry;
};

// One search.
class Search {
public:
  Search(Contents& contents, const SearchQuery& query, const PreferencesStore& store)
      : contents_(contents),
        query_(query),
        stored_(contents, query, store),
        worths_(contents.worthsOf(query.words)) {}

  std::vector<Fitting> fitting() const {
    std::vector<Fitting> fitting;
    for (std::size_t i = 0; i < contents_.entries().size(); ++i) {
      if (query_.isForChanged && !stored_.isChanged(i)) continue;
      const int worth = worthOf(i);
      if (worth == 0 && !query_.words.empty()) continue;
      if (fitting.empty() || !areOneRow(fitting.back().entry, i)) {
        fitting.push_back({.worth = worth, .entry = i});
      } else if (worth > fitting.back().worth) {
        fitting.back() = {.worth = worth, .entry = i};
      }
    }
    return fitting;
  }

private:
  // Settings that one row shows follow one another. They are one result.
  bool areOneRow(std::size_t a, std::size_t b) const {
    const Contents::Entry& first = contents_.entries()[a];
    const Contents::Entry& second = contents_.entries()[b];
    return first.group == second.group && !first.row.empty() && first.row == second.row &&
           first.title == second.title;
  }

  int worthOf(std::size_t number) const {
    const Contents::Entry& entry = contents_.entries()[number];
    const Contents::TextNumber names = contents_.groups()[entry.group].names;
    int worth = 0;
    for (std::size_t word = 0; word < query_.words.size(); ++word) {
      const int here = std::max(
          {worthIn(entry.text, word), worthIn(names, word), stored_.worthOf(number, word)});
      if (here == 0) return 0;
      worth += here;
    }
    return contents_.texts()[entry.text].equals(query_.phrase) ? worth + kWholeQuery : worth;
  }

  int worthIn(Contents::TextNumber text, std::size_t word) const { return (*worths_[word])[text]; }

  const Contents& contents_;
  const SearchQuery& query_;
  StoredValues stored_;
  // For each word, of each text.
  std::vector<std::shared_ptr<const WordWorths::Worths>> worths_;
};

}  // namespace

SettingsIndex::SettingsIndex(std::shared_ptr<const SearchedSettings> settings,
                             std::function<bool(std::string_view)> hasTab)
    : contents_(std::make_unique<Contents>(std::move(settings), std::move(hasTab))) {}

SettingsIndex::~SettingsIndex() = default;

bool SettingsIndex::extend(std::chrono::microseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (!isComplete() && std::chrono::steady_clock::now() < end) contents_->addNextAnalyzer();
  return isComplete();
}

void SettingsIndex::complete() {
  while (!isComplete()) contents_->addNextAnalyzer();
}

bool SettingsIndex::isComplete() const { return contents_->isComplete(); }
bool SettingsIndex::isOutdated() const { return contents_->isOutdated(); }

FoundSettings SettingsIndex::find(std::string_view text, PreferencesStore& store,
                                  std::size_t most) const {
  const SearchQuery query(text);
  if (query.isEmpty()) return {};
  std::vector<Fitting> fitting = Search(*contents_, query, store).fitting();
  const auto shown = static_cast<std::ptrdiff_t>(std::min(most, fitting.size()));
  std::ranges::partial_sort(fitting, fitting.begin() + shown, [](const auto& a, const auto& b) {
    return a.worth != b.worth ? a.worth > b.worth : a.entry < b.entry;
  });
  FoundSettings found{.best = {}, .count = fitting.size()};
  for (const Fitting& each : std::span(fitting).first(static_cast<std::size_t>(shown))) {
    const Contents::Entry& entry = contents_->entries()[each.entry];
    const Contents::Group& group = contents_->groups()[entry.group];
    found.best.push_back({.title = entry.title,
                          .place = {.tab = group.tab, .analyzer = group.analyzer, .row = entry.row},
                          .key = entry.key,
                          .rowTitle = entry.rowTitle});
  }
  return found;
}

std::string placeText(const FoundSetting& found) {
  constexpr const char* within = " › ";
  const PreferencePlace& place = found.place;
  const auto tabs = settingTabs();
  const auto* const tab = std::ranges::find(tabs, place.tab, &SettingTab::name);
  const bool isAnalyzer = found.key.empty() && !place.analyzer.empty();
  if (tab == tabs.end() || (found.key.empty() && !isAnalyzer)) return {};
  std::string text = settingText(tab->title);
  if (!isAnalyzer && !place.analyzer.empty()) text += within + place.analyzer;
  if (!found.rowTitle.empty()) text += within + found.rowTitle;
  return text;
}

}  // namespace QEVSettings
