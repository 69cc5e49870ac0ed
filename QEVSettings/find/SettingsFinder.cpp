// SPDX-License-Identifier: MIT
#include "find/SettingsFinder.hpp"

#include "find/SearchQuery.hpp"
#include "foundation/MainQueue.hpp"

#include <algorithm>
#include <chrono>
#include <utility>

namespace QEVSettings {

namespace {

// The list shows no more.
constexpr std::size_t kMostShown = 40;
// How long one turn works on the index: less than half a frame.
constexpr std::chrono::microseconds kTurn{5000};

}  // namespace

SettingsFinder::SettingsFinder(std::shared_ptr<SettingsNavigation> navigation,
                               PreferencesStore& store,
                               std::function<bool(std::string_view)> hasTab)
    : navigation_(std::move(navigation)), store_(store), hasTab_(std::move(hasTab)) {}

void SettingsFinder::setQuery(std::string query) {
  if (query == query_) return;
  objectWillChange().announce();
  query_ = std::move(query);
  isOpen_ = !query_.empty();
  search();
}

bool SettingsFinder::isForChanged() const { return SearchQuery(query_).isForChanged; }

void SettingsFinder::toggleForChanged() {
  const SearchQuery query(query_);
  std::string words = query.phrase;
  if (!query.isForChanged)
    words = std::string(kChangedSettings) + (words.empty() ? "" : " ") + words;
  setQuery(words);
}

void SettingsFinder::search() {
  prepareIndex();
  found_ = index_->find(query_, store_, kMostShown);
  selected_ = found_.best.empty() ? -1 : 0;
}

void SettingsFinder::prepareIndex() {
  if (!index_ || index_->isOutdated())
    index_ = std::make_unique<SettingsIndex>(registeredSettings(navigation_->catalogue()), hasTab_);
  if (!index_->extend(kTurn)) continueLater();
}

void SettingsFinder::continueLater() {
  if (std::exchange(isContinuing_, true)) return;
  foundation::MainQueue::mainQueue().async([weak = weak_from_this()] {
    const auto self = weak.lock();
    if (!self) return;
    self->isContinuing_ = false;
    if (!self->index_->extend(kTurn)) return self->continueLater();
    self->objectWillChange().announce();
    const int selected = self->selected_;
    self->search();
    if (selected < static_cast<int>(self->found_.best.size())) self->selected_ = selected;
  });
}

void SettingsFinder::open() {
  if (isOpen_ || query_.empty()) return;
  objectWillChange().announce();
  isOpen_ = true;
  search();
}

void SettingsFinder::close() {
  if (!isOpen_) return;
  objectWillChange().announce();
  isOpen_ = false;
}

void SettingsFinder::select(int position) {
  const bool exists = position >= 0 && position < static_cast<int>(found_.best.size());
  if (!exists || position == selected_) return;
  objectWillChange().announce();
  selected_ = position;
}

void SettingsFinder::moveSelection(int step) {
  const int count = static_cast<int>(found_.best.size());
  if (count > 0) select((selected_ + step + count) % count);
}

void SettingsFinder::choose(int position) {
  if (position < 0 || position >= static_cast<int>(found_.best.size())) return;
  const FoundSetting chosen = found_.best[static_cast<std::size_t>(position)];
  close();
  navigation_->show(chosen.place, chosen.key);
}

}  // namespace QEVSettings
