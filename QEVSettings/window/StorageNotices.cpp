// SPDX-License-Identifier: MIT
#include "QEVSettings/StorageNotices.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "foundation/MainQueue.hpp"
#include "resources/resource_bundle_accessor.hpp"

#include <algorithm>
#include <functional>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace QEVSettings {

namespace {

// The recoveries of all stores of the process that the user has seen. They are compared by their
// contents and not by the address of the store, because another store may reuse an address.
struct SeenRecoveries {
  std::vector<StoreOpening> recoveries;
  foundation::Announcer changed;

  bool contains(const StoreOpening& opening) const {
    const auto members = [](const StoreOpening& each) {
      return std::tie(each.outcome, each.message, each.copyTime, each.lostKeys);
    };
    return std::ranges::any_of(recoveries,
                               [&](const auto& each) { return members(each) == members(opening); });
  }
};

SeenRecoveries& seenRecoveries() {
  static SeenRecoveries seen;
  return seen;
}

// Calls `update` from the main queue after each change of the store's storage. The store may
// announce the change during a read, and so while the body of a view runs, which must not be marked
// then.
foundation::Subscription observeStorageLater(PreferencesStore& store,
                                             std::function<void()> update) {
  struct Observation {
    std::function<void()> update;
    Subscription subscription;
  };
  const auto observation = std::make_shared<Observation>(Observation{std::move(update), {}});
  observation->subscription = store.observeStorage([weak = std::weak_ptr(observation)] {
    foundation::MainQueue::mainQueue().async([weak] {
      if (const auto observation = weak.lock()) observation->update();
    });
  });
  return foundation::Subscription([observation] { observation->subscription.cancel(); });
}

bool isRecovery(const StoreOpening& opening) {
  return opening.outcome == StoreOpening::Outcome::restored ||
         opening.outcome == StoreOpening::Outcome::begunEmpty;
}

std::string textOf(StorageProblem problem) {
  switch (problem) {
    case StorageProblem::diskFull:
      return localized(
          "Changes cannot be saved: the disk is full. They are kept and will be saved when there "
          "is room.");
    case StorageProblem::notWritable:
      return localized(
          "Changes cannot be saved: the settings file is write-protected. They are kept and will "
          "be saved when it can be written.");
    case StorageProblem::busy:
      return localized(
          "Changes cannot be saved: another program is using the settings file. They are kept and "
          "will be saved when it is free.");
    case StorageProblem::unusable:
      return localized(
          "Changes cannot be saved: the settings file belongs to another program, another user or "
          "a newer version. They are kept until the program ends.");
    case StorageProblem::noFile:
      return localized(
          "Changes cannot be saved: there is no folder for the settings file. They are kept until "
          "the program ends.");
    case StorageProblem::failing: break;
  }
  return localized(
      "Changes cannot be saved: the disk reports an error. They are kept and will be saved when it "
      "works again.");
}

std::string recoveryText(const StoreOpening& opening) {
  if (opening.outcome == StoreOpening::Outcome::begunEmpty) {
    return localized(
        "The settings file and its copy were damaged. All settings have their default values "
        "again.");
  }
  if (opening.lostKeys == 0) {
    return localized(
        "The settings file was damaged and has been restored. The latest changes may be missing.");
  }
  return QEVCommonTools::formatted(localized("The settings file was damaged and has been restored. "
                                             "Settings that are lost or out of date: %@"),
                                   {std::to_string(opening.lostKeys)});
}

}  // namespace

StorageNotices::StorageNotices(PreferencesStore& store)
    : opening_(store.opening()),
      problem_(store.storageProblem()),
      storageSubscription_(observeStorageLater(store,
                                               [this, &store] {
                                                 objectWillChange().announce();
                                                 opening_ = store.opening();
                                                 problem_ = store.storageProblem();
                                               })),
      seenSubscription_(
          seenRecoveries().changed.subscribe([this] { objectWillChange().announce(); })) {}

StorageNotices::~StorageNotices() {
  if (recovery()) seenRecoveries().recoveries.push_back(opening_);
}

std::optional<std::string> StorageNotices::problem() const {
  if (problem_) return textOf(*problem_);
  if (opening_.outcome != StoreOpening::Outcome::inMemory) return std::nullopt;
  return localized(
      "Changes cannot be saved: the settings file cannot be used. They are kept until the program "
      "ends.");
}

std::optional<std::string> StorageNotices::recovery() const {
  if (!isRecovery(opening_) || seenRecoveries().contains(opening_)) return std::nullopt;
  return recoveryText(opening_);
}

void StorageNotices::dismissRecovery() {
  if (!recovery()) return;
  seenRecoveries().recoveries.push_back(opening_);
  seenRecoveries().changed.announce();
}

}  // namespace QEVSettings
