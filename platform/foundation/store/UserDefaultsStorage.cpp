// SPDX-License-Identifier: MIT
#include "foundation/UserDefaults.hpp"

#include "foundation/Diagnostics.hpp"
#include "foundation/PreferenceObservers.hpp"
#include "store/PreferencesFile.hpp"
#include "store/recovery/PreferencesRecovery.hpp"
#include "store/watch/PreferencesWatch.hpp"
#include "system/ProcessLimits.hpp"

#include <unistd.h>

#include <chrono>
#include <unordered_map>
#include <utility>

// What the store does with its file. UserDefaults.cpp has what its users call.

namespace foundation {

using QEVSettings::StorageProblem;
using QEVSettings::StoreOpening;

namespace {

using Clock = std::chrono::steady_clock;

// Writes that follow each other quicker are one burst, which a thread puts on disk once in this
// time.
constexpr std::chrono::milliseconds kBurst(20);
// What could not be written is not tried again with every write.
constexpr std::chrono::milliseconds kPauseAfterFailure(250);

bool mayBeWritten(const std::filesystem::path& path) {
  return ::access(path.c_str(), W_OK) == 0 && ::access(path.parent_path().c_str(), W_OK) == 0;
}

}  // namespace

UserDefaults::~UserDefaults() {
  watch_.reset();
  if (file_ && !file_->isReadOnly() && (file_->isIndexCut() || file_->isReplaced()))
    static_cast<void>(withinLimits([this] { return reconnect(Suspicion::none); }));
  static_cast<void>(synchronize());
  // The watch that saving may have asked for.
  watch_.reset();
  if (!file_ || file_->isReadOnly()) return;
  catchUp();
  if (!file_) return;
  const auto lastOfCopy = lastChangeOfGoodCopy(path_);
  if (lastOfCopy && *lastOfCopy == lowBitsOfChange(file_->lastChange())) return;
  if (isShortLived_ && lastOfCopy && isGoodCopyRecent(path_, *lastOfCopy, file_->lastChange()))
    return;
  static_cast<void>(withinLimits([this] {
    if (auto recovery = keepGoodCopy(path_)) didRecover(*std::move(recovery));
    return done();
  }));
  catchUp();
  watch_.reset();
}

void UserDefaults::connect() {
  auto opened = openPreferences(path_, {});
  image_.reserve(opened.contents.size());
  // Copies of the keys lie next to each other, which look-ups feel: the keys as read lie between
  // the values.
  for (PreferenceChange& change : opened.contents) {
    if (change.value) {
      image_.insert_or_assign(std::string(change.key),
                              Kept{.value = *std::move(change.value), .number = change.number});
    } else {
      removed_.insert_or_assign(std::string(change.key), change.number);
    }
  }
  file_ = std::move(opened.file);
  if (file_ && isShortLived_) file_->expectCheckpoint();
  setOpening(std::move(opened.opening));
  setStatus(std::move(opened.error), opened.problem);
}

void UserDefaults::connectForReading() {
  auto opened = readPreferences(path_);
  // From here on a store in memory.
  readOnlyPath_ = std::exchange(path_, {});
  for (PreferenceChange& change : opened.contents) {
    if (change.value) {
      image_.insert_or_assign(std::move(change.key),
                              Kept{.value = *std::move(change.value), .number = change.number});
    }
  }
  setOpening(std::move(opened.opening));
  if (opened.error && opened.problem == StorageProblem::noFile) {
    // Whoever asks decides whether that is worth a line.
    status_ = std::move(opened.error);
    problem_ = opened.problem;
  } else {
    setStatus(std::move(opened.error), opened.problem);
  }
}

void UserDefaults::setOpening(StoreOpening opening) {
  if (wasRecovered(opening)) reportDiagnostic("preferences: " + opening.message);
  opening_ = std::move(opening);
  announceStorageLater();
}

// `keepGoodCopy` recovered the store, and reported that. What it recovered comes as changes.
void UserDefaults::didRecover(StoreOpening opening) {
  opening_ = std::move(opening);
  announceStorageLater();
}

// A file that lost the index of its log is closed, and opened anew by the next save. Until it is
// closed, SQLite would share its memory with whoever opens it.
void UserDefaults::closeCutFile() {
  if (file_ && file_->isIndexCut()) file_.reset();
}

// Opens the file anew: it could not be used so far, it is damaged, or it is another one by now.
// Fails, and keeps the file that it has, when that has left a log which cannot be read.
Outcome UserDefaults::reconnect(Suspicion suspicion) {
  FileLimitSignal::lookUpLimit();
  closeCutFile();
  const bool isMoved = file_ && file_->isFolderReplaced();
  if (file_ && file_->hasLeftItsLog()) {
    auto changes = takeAbandonedLog(path_);
    if (!changes) return changes.error();
    takeOverNewer(*std::move(changes));
  }
  file_.reset();
  const auto memory = rememberedChanges();
  auto opened = openPreferences(path_, {.patience = status_ ? Patience::none : Patience::aMoment,
                                        .suspicion = suspicion,
                                        .memory = memory});
  if (opened.file &&
      (wasRecovered(opened.opening) || opening_.outcome == StoreOpening::Outcome::inMemory)) {
    setOpening(std::move(opened.opening));
  }
  // First: a file whose contents there was no memory for is opened again.
  takeOverFile(std::move(opened.contents), opened.file != nullptr);
  file_ = std::move(opened.file);
  if (file_ && isShortLived_) file_->expectCheckpoint();
  if (opened.error) {
    setStatus(std::move(opened.error), opened.problem);
  } else if (unsaved_.empty()) {
    setStatus(std::nullopt, std::nullopt);
  }
  if (isMoved && watch_) {
    // The watch still watches the folder that was moved.
    watch_.reset();
    startWatch();
  }
  return done();
}

// What the memory has from the file, without changes that are not written yet.
std::vector<PreferenceChange> UserDefaults::rememberedChanges() const {
  std::vector<PreferenceChange> changes;
  for (const auto& [key, kept] : image_) {
    const auto unsaved = unsaved_.find(key);
    const bool isNew = unsaved != unsaved_.end() && unsaved->second.number == 0;
    if (kept.number != 0 && !isNew)
      changes.push_back({.key = key, .value = kept.value, .number = kept.number});
  }
  for (const auto& [key, number] : removed_) {
    const auto unsaved = unsaved_.find(key);
    const bool isNew = unsaved != unsaved_.end() && unsaved->second.number == 0;
    if (number != 0 && !isNew)
      changes.push_back({.key = key, .value = std::nullopt, .number = number});
  }
  return changes;
}

// Takes over the contents of a file of which the memory may have older or newer changes. If the
// file can be written, newer changes in memory become unsaved changes. A key that was removed in
// memory and is missing in the file needs no write.
void UserDefaults::takeOverFile(std::vector<PreferenceChange> contents, bool isWritten) {
  std::unordered_map<std::string, std::int64_t> inFile;
  for (const PreferenceChange& change : contents) inFile.emplace(change.key, change.number);
  if (isWritten) {
    for (PreferenceChange& remembered : rememberedChanges()) {
      const auto found = inFile.find(remembered.key);
      if (found != inFile.end() && found->second >= remembered.number) continue;
      if (found == inFile.end() && !remembered.value) continue;
      unsaved_.insert_or_assign(
          std::move(remembered.key),
          Pending{.value = std::move(remembered.value), .number = remembered.number});
    }
  }
  takeOverNewer(std::move(contents));
}

void UserDefaults::takeOverNewer(std::vector<PreferenceChange> changes) {
  std::vector<std::string> changedKeys;
  for (PreferenceChange& change : changes) {
    if (change.number >= numberOf(change.key)) takeOver(std::move(change), changedKeys);
  }
  announceLater(std::move(changedKeys));
}

void UserDefaults::catchUp() const {
  if (file_ && file_->mayHaveChanged()) self_.takeOverChanges();
}

void UserDefaults::takeOverChanges() {
  std::vector<std::string> changedKeys;
  const auto outcome = withinLimits([&] {
    return file_->readChanges(
        [&](PreferenceChange change) { takeOver(std::move(change), changedKeys); });
  });
  announceLater(std::move(changedKeys));
  const bool needsAll = outcome && file_->takeHasOlderChanges();
  const auto all = needsAll ? withinLimits([&] {
    std::vector<PreferenceChange> contents;
    auto read =
        file_->readAll([&](PreferenceChange change) { contents.push_back(std::move(change)); });
    if (read) takeOverFile(std::move(contents), true);
    return read;
  })
                            : outcome;
  if (all) {
    if (!unsaved_.empty() && needsAll) {
      closeCutFile();
      save();
    }
    // The file can be read again.
    if (unsaved_.empty() && status_ && file_ && !file_->isReadOnly())
      setStatus(std::nullopt, std::nullopt);
  } else if (file_->isDamaged()) {
    closeCutFile();
    save();
  } else {
    setStatus(all.error(), file_->problem());
  }
}

Outcome UserDefaults::synchronize() {
  if (!unsaved_.empty()) {
    closeCutFile();
    save();
  }
  if (file_ && unsaved_.empty()) {
    auto outcome =
        withinLimits([this] { return isShortLived_ ? file_->checkpoint() : file_->synchronize(); });
    if (!outcome) return outcome;
    if (watch_) watch_->didSynchronize();
  }
  return status_ ? Outcome(*status_) : done();
}

void UserDefaults::saveUnlessJustFailed() {
  if (!status_ || Clock::now() - failed_ >= kPauseAfterFailure) save();
}

// `closeCutFile` must have been called before.
void UserDefaults::save() {
  if (path_.empty()) return;
  if (!isShortLived_) startWatch();
  const auto attempt = [this](Suspicion suspicion) {
    return withinLimits([&] { return saveOnce(suspicion); });
  };
  auto outcome = attempt(file_ && file_->isDamaged() ? Suspicion::damaged : Suspicion::none);
  for (const Suspicion suspicion : {Suspicion::damaged, Suspicion::certain}) {
    if (!outcome && file_ && file_->isDamaged()) outcome = attempt(suspicion);
  }
  if (outcome) {
    setStatus(std::nullopt, std::nullopt);
    if (watch_) {
      watch_->didSucceed();
      watch_->didWrite();
    }
  } else {
    failed_ = Clock::now();
    setStatus(outcome.error(), file_ ? std::optional(file_->problem()) : problem_);
    if (watch_) watch_->retryLater();
  }
}

Outcome UserDefaults::saveOnce(Suspicion suspicion) {
  if (suspicion != Suspicion::none || !file_ || file_->isReplaced() ||
      (file_->isReadOnly() && mayBeWritten(path_))) {
    if (auto outcome = reconnect(suspicion); !outcome) return outcome;
  }
  if (!file_) return status_ ? *status_ : Error{path_.string() + " cannot be opened"};
  if (unsaved_.empty()) return done();
  std::vector<PreferenceChange> changes;
  changes.reserve(unsaved_.size());
  for (const auto& [key, pending] : unsaved_) {
    changes.push_back({.key = key, .value = pending.value, .number = pending.number});
  }
  std::vector<std::string> changedKeys;
  auto outcome = file_->write(
      changes, [&](PreferenceChange change) { takeOver(std::move(change), changedKeys); },
      [this](std::string_view key) { return numberOf(key); },
      {.isKept = keepsHistory_, .isSecret = &historyRules_.isSecret});
  if (outcome) didWrite(changes);
  announceLater(std::move(changedKeys));
  return outcome ? synchronizeOrLater() : outcome;
}

void UserDefaults::didWrite(const std::vector<PreferenceChange>& changes) {
  for (const PreferenceChange& change : changes) {
    if (change.number != 0) setNumber(change.key, change.number);
  }
  unsaved_.clear();
}

Outcome UserDefaults::synchronizeOrLater() {
  auto outcome = done();
  if (isShortLived_) return outcome;
  const bool isBurst = Clock::now() - written_ < kBurst;
  if (!isBurst || !watch_->synchronizeLater(kBurst)) outcome = file_->synchronize();
  // Everything is written again: after a failed sync, the disk may have lost writes that it
  // reported as done.
  if (!outcome) keepAll();
  written_ = Clock::now();
  return outcome;
}

void UserDefaults::keepAll() {
  for (const auto& [key, kept] : image_) unsaved_.try_emplace(key, Pending{.value = kept.value});
}

std::int64_t UserDefaults::numberOf(std::string_view key) const {
  if (const auto found = image_.find(key); found != image_.end()) return found->second.number;
  const auto found = removed_.find(key);
  return found != removed_.end() ? found->second : 0;
}

void UserDefaults::setNumber(const std::string& key, std::int64_t number) {
  if (const auto found = image_.find(key); found != image_.end()) {
    found->second.number = number;
  } else {
    removed_.insert_or_assign(key, number);
  }
}

// A change that another process made. One of ours to the same key that is still to be written is
// newer.
void UserDefaults::takeOver(PreferenceChange change, std::vector<std::string>& changedKeys) {
  if (const auto unsaved = unsaved_.find(change.key); unsaved != unsaved_.end()) {
    const bool isNew = unsaved->second.number == 0;
    if (isNew) setNumber(change.key, change.number);
    if (isNew || change.number <= unsaved->second.number) return;
    unsaved_.erase(unsaved);
  }
  const auto found = image_.find(change.key);
  const bool isSame = found == image_.end() ? !change.value : change.value == found->second.value;
  if (change.value) {
    removed_.erase(change.key);
    image_.insert_or_assign(change.key,
                            Kept{.value = *std::move(change.value), .number = change.number});
  } else {
    if (found != image_.end()) image_.erase(found);
    removed_.insert_or_assign(change.key, change.number);
  }
  if (!isSame) changedKeys.push_back(std::move(change.key));
}

// A problem is reported once, when it begins.
void UserDefaults::setStatus(std::optional<Error> status, std::optional<StorageProblem> problem) {
  if (!status) problem.reset();
  if (status && !status_) reportDiagnostic("preferences: " + status->message);
  status_ = std::move(status);
  if (std::exchange(problem_, problem) != problem) announceStorageLater();
}

void UserDefaults::startWatch() {
  if (watch_ || path_.empty()) return;
  watch_ = std::make_unique<PreferencesWatch>(
      path_, PreferencesWatch::Callbacks{
                 .changed =
                     [this] {
                       if (file_ && (file_->isIndexCut() || file_->isReplaced())) {
                         const auto outcome =
                             withinLimits([this] { return reconnect(Suspicion::none); });
                         if (!outcome || !unsaved_.empty()) save();
                       }
                       catchUp();
                     },
                 .retry =
                     [this] {
                       closeCutFile();
                       if (!unsaved_.empty() || status_) save();
                     },
                 .lost =
                     [this] {
                       closeCutFile();
                       keepAll();
                       save();
                     },
                 .recovered = [this](StoreOpening opening) { didRecover(std::move(opening)); }});
  // Changes from before the watch cause no event.
  catchUp();
}

}  // namespace foundation
