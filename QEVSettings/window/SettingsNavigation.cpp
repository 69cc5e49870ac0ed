// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsNavigation.hpp"

#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "foundation/MainQueue.hpp"

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace QEVSettings {

using QEVModels::QEVPlugInsController;

namespace {

constexpr std::chrono::milliseconds kTintTime{2000};

}  // namespace

SettingsNavigation::SettingsNavigation(std::shared_ptr<SettingsCatalogue> catalogue,
                                       PreferencesStore& store)
    : catalogue_(std::move(catalogue)), store_(store) {}

std::string SettingsNavigation::rowId(std::string_view key) {
  return "setting " + std::string(key);
}

bool SettingsNavigation::show(std::string_view key) {
  const PreferenceDescriptor* known = catalogue_->current().find(key);
  // A copy: what the selection of a tab causes may renew the catalogue.
  return known && show(PreferencePlace(known->place), std::string(key));
}

bool SettingsNavigation::show(const PreferencePlace& place, std::string_view key) {
  if (!open(place, key)) return false;
  if (!key.empty()) window_->views.focus(rowId(key));
  return true;
}

bool SettingsNavigation::reveal(std::string_view key) {
  const PreferenceDescriptor* known = catalogue_->current().find(key);
  if (!known || !open(PreferencePlace(known->place), std::string(key))) return false;
  window_->views.scrollTo(rowId(key));
  return true;
}

// Opens the place and tints the row.
bool SettingsNavigation::open(const PreferencePlace& place, std::string_view key) {
  if (!window_ || place.tab.empty() || !window_->selectTab(place.tab)) return false;
  if (!place.analyzer.empty() && !selectAnalyzer(place.analyzer)) return false;
  endHighlight();
  if (!key.empty()) highlight(key, place.tab);
  return true;
}

void SettingsNavigation::focus(std::string_view id) const {
  if (window_) window_->views.focus(std::string(id));
}

bool SettingsNavigation::selectAnalyzer(std::string_view title) {
  const auto analyzers = QEVPlugInsController::sharedManager().snapshot();
  const auto found =
      std::ranges::find(*analyzers, title, &QEVDependencies::QEVPlugInStructure::plugInTitle);
  if (found == analyzers->end()) return false;
  store_.setInteger(static_cast<std::int64_t>(found - analyzers->begin()),
                    kAnalyzerSelectedIndex.name);
  return true;
}

void SettingsNavigation::highlight(std::string_view key, std::string_view tab) {
  objectWillChange().announce();
  highlightedKey_ = key;
  highlightedTab_ = tab;
  if (isTintedUntilAction()) {
    changes_ = store_.observeAll([this](std::string_view changed) {
      if (changed != kAnalyzerSelectedIndex.name) endHighlight();
    });
  } else {
    timer_ = foundation::MainQueue::mainQueue().repeat(kTintTime, [this] { endHighlight(); });
  }
}

void SettingsNavigation::endHighlight() {
  if (highlightedKey_.empty()) return;
  objectWillChange().announce();
  highlightedKey_.clear();
  timer_.cancel();
  changes_.cancel();
}

bool SettingsNavigation::isTintedUntilAction() const { return window_ && window_->reducedMotion; }

void SettingsNavigation::keyWasPressed() {
  if (isTintedUntilAction()) endHighlight();
}

void SettingsNavigation::tabWasSelected(std::string_view tab) {
  if (isTintedUntilAction() && tab != highlightedTab_) endHighlight();
}

}  // namespace QEVSettings
