// SPDX-License-Identifier: MIT
#include "QEVSettings/LayeredPreferences.hpp"

#include "foundation/Diagnostics.hpp"
#include "foundation/FolderWatch.hpp"
#include "foundation/PreferenceObservers.hpp"
#include "foundation/TrustedFiles.hpp"
#include "layers/AdministratorLayers.hpp"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace QEVSettings {

struct LayeredPreferences::Layers {
  Options options;
  std::vector<std::filesystem::path> folders;
  unsigned person;
  AdministratorLayers administrator = {};
  // What is above the user's layer: the locks, and the command line where it is not locked.
  PreferenceDictionary above = {};
  std::vector<std::string> toldProblems = {};
  std::unique_ptr<foundation::FolderWatch> watch = {};
};

namespace {

// The keys of which the two dictionaries have different values.
void addDifferences(const PreferenceDictionary& a, const PreferenceDictionary& b,
                    std::set<std::string>& keys) {
  for (const auto& [key, value] : a) {
    const auto other = b.find(key);
    if (other == b.end() || other->second != value) keys.insert(key);
  }
  for (const auto& [key, value] : b) {
    if (!a.contains(key)) keys.insert(key);
  }
}

const PreferenceValue* findIn(const PreferenceDictionary& layer, std::string_view key) {
  if (layer.empty()) return nullptr;
  const auto found = layer.find(key);
  return found != layer.end() ? &found->second : nullptr;
}

// The observer in a form whose copies share its state.
PreferencesStore::Observer shared(PreferencesStore::Observer observer) {
  return [call = std::make_shared<const PreferencesStore::Observer>(std::move(observer))](
             std::string_view key) { (*call)(key); };
}

// A subscription whose end ends both of these.
Subscription both(Subscription first, Subscription second) {
  const auto subscriptions = std::make_shared<std::array<Subscription, 2>>(
      std::array<Subscription, 2>{std::move(first), std::move(second)});
  return Subscription([subscriptions] {
    for (Subscription& each : *subscriptions) each.cancel();
  });
}

}  // namespace

std::string lockedMessage(std::string_view key) {
  return "“" + std::string(key) +
         "” is managed by your organization and cannot be changed here; ask its administrator";
}

LayeredPreferences::LayeredPreferences(PreferencesStore& person)
    : LayeredPreferences(person, Options()) {}

LayeredPreferences::LayeredPreferences(PreferencesStore& person, Options options)
    : person_(person), observers_(std::make_shared<foundation::PreferenceObservers>()) {
  auto folders = administratorFolders(
      options.configurationFolders.value_or(foundation::systemConfigurationFolders()));
  const unsigned user = options.person.value_or(foundation::currentPerson());
  layers_ = std::make_unique<Layers>(
      Layers{.options = std::move(options), .folders = std::move(folders), .person = user});
  read();
}

LayeredPreferences::~LayeredPreferences() = default;

const PreferenceValue* LayeredPreferences::find(std::string_view key) const {
  if (const auto* value = findIn(layers_->above, key)) return value;
  if (const auto* value = person_.find(key)) return value;
  return findIn(layers_->administrator.defaults, key);
}

PreferenceDictionary LayeredPreferences::dictionaryRepresentation() const {
  return person_.dictionaryRepresentation();
}

void LayeredPreferences::setObject(PreferenceValue value, std::string_view key) {
  if (!refuses(key)) person_.setObject(std::move(value), key);
}

void LayeredPreferences::removeObject(std::string_view key) {
  if (!refuses(key)) person_.removeObject(key);
}

bool LayeredPreferences::refuses(std::string_view key) const {
  if (!isLocked(key)) return false;
  foundation::reportDiagnostic("preferences: " + lockedMessage(key));
  return true;
}

PreferenceOrigin LayeredPreferences::origin(std::string_view key) const {
  if (isLocked(key)) return PreferenceOrigin::locked;
  if (findIn(layers_->above, key) != nullptr) return PreferenceOrigin::commandLine;
  if (person_.find(key) != nullptr) return PreferenceOrigin::user;
  return findIn(layers_->administrator.defaults, key) != nullptr ? PreferenceOrigin::administrator
                                                                 : PreferenceOrigin::standard;
}

bool LayeredPreferences::isLocked(std::string_view key) const {
  return findIn(layers_->administrator.locks, key) != nullptr;
}

// An observer hears of the user's layer and of the others.
Subscription LayeredPreferences::observe(std::string_view key, Observer observer) {
  watch();
  const Observer call = shared(std::move(observer));
  return both(person_.observe(key, call), observers_->observe(key, call));
}

Subscription LayeredPreferences::observeAll(Observer observer) {
  watch();
  const Observer call = shared(std::move(observer));
  return both(person_.observeAll(call), observers_->observeAll(call));
}

std::vector<std::string> LayeredPreferences::keys() const {
  std::set<std::string> keys;
  const auto add = [&](const PreferenceDictionary& layer) {
    for (const auto& [key, value] : layer) keys.insert(key);
  };
  add(layers_->above);
  add(person_.dictionaryRepresentation());
  add(layers_->administrator.defaults);
  return {keys.begin(), keys.end()};
}

const std::vector<std::string>& LayeredPreferences::problems() const {
  return layers_->administrator.problems;
}

void LayeredPreferences::reload() {
  const AdministratorLayers before = std::exchange(layers_->administrator, {});
  const PreferenceDictionary above = layers_->above;
  read();
  std::set<std::string> changed;
  addDifferences(above, layers_->above, changed);
  addDifferences(before.locks, layers_->administrator.locks, changed);
  addDifferences(before.defaults, layers_->administrator.defaults, changed);
  // An observer may destroy the store.
  const auto observers = observers_;
  for (const std::string& key : changed) observers->announce(key);
}

void LayeredPreferences::read() {
  layers_->administrator = readAdministratorLayers(layers_->folders, layers_->person);
  auto& [locks, defaults, problems] = layers_->administrator;
  std::erase_if(locks, [&](const auto& lock) {
    const auto& isLockable = layers_->options.isLockable;
    if (!isLockable || isLockable(lock.first)) return false;
    problems.push_back("“" + lock.first + "” cannot be locked; take it out of the locks");
    return true;
  });
  for (const std::string& problem : problems) {
    if (std::ranges::find(layers_->toldProblems, problem) == layers_->toldProblems.end())
      foundation::reportDiagnostic("preferences: " + problem);
  }
  layers_->toldProblems = problems;
  layers_->above = layers_->options.commandLine;
  for (const auto& [key, value] : locks) layers_->above.insert_or_assign(key, value);
}

void LayeredPreferences::watch() {
  if (layers_->watch) return;
  layers_->watch =
      std::make_unique<foundation::FolderWatch>(layers_->folders, [this] { reload(); });
  // Changes from before the watch cause no event.
  reload();
}

}  // namespace QEVSettings
