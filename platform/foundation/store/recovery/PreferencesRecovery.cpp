// SPDX-License-Identifier: MIT
#include "store/recovery/PreferencesRecovery.hpp"

#include "foundation/Diagnostics.hpp"
#include "store/FilePresence.hpp"
#include "store/StoreCreation.hpp"
#include "store/StoreIdentity.hpp"
#include "store/recovery/DatabaseLog.hpp"
#include "store/recovery/GatheredPreferences.hpp"
#include "store/recovery/StoreRewrite.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <ranges>
#include <system_error>
#include <utility>

namespace foundation {

using QEVSettings::StorageProblem;
using StoreOutcome = QEVSettings::StoreOpening::Outcome;

namespace {

constexpr std::string_view kDamaged = ".damaged-";

// The folders of the path may be links; the store and the files next to it may not. In a new
// process, std::filesystem::canonical takes 30 µs more than realpath.
std::filesystem::path withRealFolder(const std::filesystem::path& store) {
  const std::unique_ptr<char, decltype(&std::free)> real(
      ::realpath(folderOf(store).c_str(), nullptr), &std::free);
  const std::string& path = store.native();
  return real ? real.get() + path.substr(path.rfind('/')) : path;
}

OpenedPreferences unusable(Error error, StorageProblem problem) {
  OpenedPreferences opened;
  opened.problem = problem;
  opened.opening.outcome = StoreOutcome::inMemory;
  opened.opening.message = error.message;
  opened.error = std::move(error);
  return opened;
}

OpenedPreferences foreign(const std::filesystem::path& store) {
  return unusable(Error{store.string() + " is " + descriptionOfForeignFile(store) +
                        ", not a preferences store; choose another file"},
                  StorageProblem::unusable);
}

struct Attempt {
  OpenedPreferences opened;
  std::string damage = {};  // what makes a recovery necessary, if something does
};

Attempt damaged(std::string damage) {
  Attempt attempt{.opened = unusable(Error{damage}, StorageProblem::failing)};
  attempt.damage = std::move(damage);
  return attempt;
}

StorageProblem problemOf(int error) {
  if (error == ENOSPC || error == EDQUOT) return StorageProblem::diskFull;
  return error == EACCES || error == EPERM || error == EROFS ? StorageProblem::notWritable
                                                             : StorageProblem::failing;
}

// Why the store needs a recovery, as far as that is visible before SQLite opens it; empty when it
// does not.
Result<std::string> damageBefore(const std::filesystem::path& store, StoreKind kind) {
  if (kind == StoreKind::damaged) return store.string() + " is damaged";
  // The store may look intact and still lack changes that the copies have.
  const auto copies = unfinishedCopiesOf(store);
  if (!copies) return copies.error();
  if (!copies->empty()) return "the recovery of " + store.string() + " was cut short";
  if (kind != StoreKind::missing && kind != StoreKind::empty) return std::string();
  const Presence goodCopy = presenceOf(goodCopyOf(store));
  if (goodCopy == Presence::unknown) return unreadable(goodCopyOf(store));
  // SQLite would remove the log of an empty file, and the changes in it.
  const auto log = readRawDatabaseFileIfThere(store.string() + "-wal", 1);
  if (!log) return log.error();
  if (goodCopy == Presence::absent && log->empty()) return std::string();
  return store.string() + (kind == StoreKind::missing ? " was missing" : " was empty");
}

Attempt read(const std::filesystem::path& store, std::unique_ptr<PreferencesFile> file,
             Outcome outcome, std::optional<std::uint32_t> lastOfCopy) {
  OpenedPreferences opened;
  if (outcome) {
    outcome = file->readAll(
        [&](PreferenceChange change) { opened.contents.push_back(std::move(change)); });
  }
  if (outcome && isBehind(file->lastChange(), lastOfCopy)) {
    return damaged(store.string() + " had lost its last changes");
  }
  if (outcome) {
    opened.file = std::move(file);
    return {.opened = std::move(opened)};
  }
  if (file->isDamaged()) return damaged(outcome.error().message);
  return {.opened = unusable(outcome.error(), file->problem())};
}

// Takes the repair lock when a store has to be created, unless the caller holds it.
Attempt tryToOpen(const std::filesystem::path& store, Patience patience, bool isLockHeld) {
  const auto kind = kindOfStore(store);
  if (!kind) return {.opened = unusable(kind.error(), StorageProblem::unusable)};
  if (*kind == StoreKind::foreign) return {.opened = foreign(store)};
  const auto damage = damageBefore(store, *kind);
  if (!damage) return {.opened = unusable(damage.error(), StorageProblem::failing)};
  if (!damage->empty()) return damaged(*damage);
  const bool isNew = *kind == StoreKind::missing;
  if (isNew) {
    std::optional<RepairLock> lock;
    if (!isLockHeld) lock.emplace(store, patience);
    errno = 0;
    if (auto made = makeStore(store); !made)
      return {.opened = unusable(made.error(), problemOf(errno))};
  }
  struct stat found {};
  // Takes other users' rights away, and gives the owner none.
  if (::lstat(store.c_str(), &found) == 0 && (found.st_mode & 077U) != 0) {
    ::chmod(store.c_str(), found.st_mode & 0700U);
  }
  // Read before the store, because another process may renew both meanwhile.
  const auto lastOfCopy = lastChangeOfGoodCopy(store);
  if (!lastOfCopy) return {.opened = unusable(lastOfCopy.error(), StorageProblem::failing)};
  auto file = std::make_unique<PreferencesFile>(store);
  if (patience == Patience::none) file->dontWait();
  auto outcome = file->open();
  auto attempt = read(store, std::move(file), std::move(outcome), *lastOfCopy);
  if (attempt.opened.file && (isNew || *kind == StoreKind::empty))
    attempt.opened.opening.outcome = StoreOutcome::created;
  return attempt;
}

// Renames the copies of the damaged store to their final names, the last copy first, so that none
// is left behind a gap. Returns the name of the first copy.
std::string nameDamagedCopies(const std::filesystem::path& store) {
  const auto copies = unfinishedCopiesOf(store);
  if (!copies) return {};
  std::string first;
  for (const auto& copy : std::views::reverse(*copies)) {
    const std::string dated =
        store.string() + std::string(kDamaged) + textOfTime(std::time(nullptr), "%Y-%m-%d-%H%M%S");
    std::string name = dated;
    constexpr int mostInOneSecond = 100;
    for (int i = 2; i < mostInOneSecond && presenceOf(name) != Presence::absent; ++i)
      name = dated + "-" + std::to_string(i);
    // The file last: while it has its old name, file and log count as unfinished.
    ::rename((copy.string() + "-wal").c_str(), (name + "-wal").c_str());
    if (::rename(copy.c_str(), name.c_str()) != 0) return {};
    first = std::filesystem::path(name).filename().string();
  }
  syncFolder(store.parent_path());
  return first;
}

OpenedPreferences withContents(const std::filesystem::path& store, const OpeningRequest& request,
                               const Error& error, StorageProblem problem) {
  auto opened = unusable(error, problem);
  opened.contents = GatheredPreferences(store, request.memory).contents();
  return opened;
}

OpenedPreferences recover(const std::filesystem::path& store, const OpeningRequest& request,
                          const std::string& damage) {
  if (presenceOf(store) == Presence::absent) {
    errno = 0;
    if (auto made = makeStore(store); !made)
      return withContents(store, request, made.error(), problemOf(errno));
  }
  StoreRewrite rewrite(store);
  std::optional<GatheredPreferences> gathered;
  auto error = rewrite.run(request.patience, [&]() -> Result<std::vector<PreferenceChange>> {
    gathered.emplace(store, request.memory);
    if (gathered->problem()) return *gathered->problem();
    return gathered->markedContents();
  });
  if (error) {
    return withContents(store, request, Error{damage + "; " + error->message}, rewrite.problem());
  }
  const auto name = nameDamagedCopies(store);
  auto opened = tryToOpen(store, request.patience, true).opened;
  if (opened.file) {
    opened.opening =
        gathered->opening(damage, name.empty() ? "" : "; the damaged file is kept as " + name);
  }
  return opened;
}

}  // namespace

std::vector<std::filesystem::path> damagedCopiesOf(const std::filesystem::path& store) {
  std::vector<std::filesystem::path> found;
  std::error_code error;
  const std::string begin = store.filename().string() + std::string(kDamaged);
  for (const auto& entry : std::filesystem::directory_iterator(store.parent_path(), error)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(begin) && !name.ends_with("-wal")) found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

bool wasRecovered(const QEVSettings::StoreOpening& opening) {
  return opening.outcome == StoreOutcome::restored || opening.outcome == StoreOutcome::begunEmpty;
}

OpenedPreferences openPreferences(const std::filesystem::path& path,
                                  const OpeningRequest& request) {
  if (!path.is_absolute() || !path.has_filename()) {
    return unusable(Error{"'" + path.string() + "' names no file; choose one"},
                    StorageProblem::unusable);
  }
  errno = 0;
  if (auto outcome = makeFolders(folderOf(path)); !outcome)
    return unusable(outcome.error(), problemOf(errno));
  const auto store = withRealFolder(path);
  Attempt attempt = tryToOpen(store, request.patience, false);
  if (attempt.damage.empty() && (request.suspicion == Suspicion::none || !attempt.opened.file)) {
    return std::move(attempt.opened);
  }
  attempt.opened.file.reset();
  const RepairLock lock(store, request.patience);
  if (!lock.isHeld()) {
    const bool mayWrite = ::access(store.parent_path().c_str(), W_OK) == 0;
    const Error error{store.string() + " is damaged and cannot be recovered now; " +
                      (mayWrite ? "another process is at it" : "allow writing to its folder")};
    return withContents(store, request, error,
                        mayWrite ? StorageProblem::busy : StorageProblem::notWritable);
  }
  // Another process may have recovered the store meanwhile.
  attempt = tryToOpen(store, request.patience, true);
  auto& file = attempt.opened.file;
  if (attempt.damage.empty() && file && request.suspicion != Suspicion::none) {
    if (request.suspicion == Suspicion::certain || !file->faults().empty()) {
      attempt.damage = store.string() + " is damaged";
      file.reset();
    }
  }
  if (attempt.damage.empty()) return std::move(attempt.opened);
  return recover(store, request, attempt.damage);
}

OpenedPreferences readPreferences(const std::filesystem::path& path) {
  const auto store = withRealFolder(path);
  const auto kind = kindOfStore(store);
  if (!kind) return unusable(kind.error(), StorageProblem::unusable);
  if (*kind == StoreKind::foreign) return foreign(store);
  auto damage = damageBefore(store, *kind);
  if (damage && damage->empty() && *kind == StoreKind::missing) {
    return unusable(Error{"there is no store at " + store.string() + "; check the path"},
                    StorageProblem::noFile);
  }
  if (damage && damage->empty() && *kind == StoreKind::empty) return {};
  const auto lastOfCopy = lastChangeOfGoodCopy(store);
  if (damage && !lastOfCopy) damage = lastOfCopy.error();
  if (damage && damage->empty()) {
    auto file = std::make_unique<PreferencesFile>(store);
    auto outcome = file->openSnapshot();
    Attempt attempt = read(store, std::move(file), std::move(outcome), *lastOfCopy);
    attempt.opened.file.reset();
    if (attempt.damage.empty()) return std::move(attempt.opened);
    damage = attempt.damage;
  }
  const GatheredPreferences gathered(store, {});
  const auto problem = damage ? gathered.problem() : std::optional(damage.error());
  auto opened = problem ? unusable(*problem, StorageProblem::failing) : OpenedPreferences();
  opened.contents = gathered.contents();
  if (!problem) opened.opening = gathered.opening(*damage, "; nothing on disk was changed");
  return opened;
}

Result<std::vector<PreferenceChange>> takeAbandonedLog(const std::filesystem::path& store) {
  PreferencesSalvage salvage;
  auto log = readRawDatabaseFileIfThere(store.string() + "-wal");
  if (!log) return log.error();
  salvage.addFile({}, DatabaseLog(*std::move(log)));
  for (const char* ending : {"-wal", "-shm"}) ::unlink((store.string() + ending).c_str());
  return salvage.changes();
}

std::optional<QEVSettings::StoreOpening> keepGoodCopy(const std::filesystem::path& store) {
  const auto replace = [&] {
    const RepairLock lock(store, Patience::aMoment);
    return lock.isHeld() ? replaceGoodCopy(store) : CopyOutcome::failed;
  };
  if (replace() != CopyOutcome::damaged) return std::nullopt;
  auto opened = openPreferences(store, {.suspicion = Suspicion::certain});
  opened.file.reset();
  if (!wasRecovered(opened.opening)) return std::nullopt;
  reportDiagnostic("preferences: " + opened.opening.message);
  replace();
  return std::move(opened.opening);
}

}  // namespace foundation
