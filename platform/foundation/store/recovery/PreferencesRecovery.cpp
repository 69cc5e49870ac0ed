#include "store/recovery/PreferencesRecovery.hpp"

#include "store/StoreCreation.hpp"
#include "store/StoreIdentity.hpp"
#include "store/recovery/PreferencesSalvage.hpp"
#include "store/recovery/StoreRewrite.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceValue;
using QEVSettings::StorageProblem;
using StoreOutcome = QEVSettings::StoreOpening::Outcome;

namespace {

constexpr std::string_view kDamaged = ".damaged-";

std::string textOfTime(std::time_t time, const char* format) {
  std::tm parts{};
  ::gmtime_r(&time, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), format, &parts)};
}

bool isThere(const std::filesystem::path& path) {
  struct stat found {};
  return ::lstat(path.c_str(), &found) == 0;
}

bool hasContents(const std::filesystem::path& path) {
  struct stat found {};
  return ::lstat(path.c_str(), &found) == 0 && found.st_size > 0;
}

// A person's folders may be links; the file and what stands next to it may not.
std::filesystem::path withRealFolder(const std::filesystem::path& store) {
  std::error_code error;
  const auto folder = std::filesystem::canonical(store.parent_path(), error);
  return error ? store : folder / store.filename();
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

struct Attempt : OpenedPreferences {
  Attempt() = default;
  Attempt(OpenedPreferences opened) : OpenedPreferences(std::move(opened)) {}
  std::string damage;  // what makes a recovery necessary, if something does
};

Attempt damaged(std::string damage) {
  Attempt attempt(unusable(Error{damage}, StorageProblem::failing));
  attempt.damage = std::move(damage);
  return attempt;
}

StorageProblem problemOf(int error) {
  if (error == ENOSPC || error == EDQUOT) return StorageProblem::diskFull;
  return error == EACCES || error == EPERM || error == EROFS ? StorageProblem::notWritable
                                                             : StorageProblem::failing;
}

// Why the store needs a recovery, as far as that shows before SQLite opens it.
std::string damageBefore(const std::filesystem::path& store, StoreKind kind) {
  if (kind == StoreKind::damaged) return store.string() + " is damaged";
  // It may look whole, and lack what the copies have.
  if (!unfinishedCopiesOf(store).empty())
    return "the recovery of " + store.string() + " was cut short";
  // SQLite would remove the log of an empty file.
  const bool isLeft = isThere(goodCopyOf(store)) || hasContents(store.string() + "-wal");
  if (kind == StoreKind::missing && isLeft) return store.string() + " was missing";
  if (kind == StoreKind::empty && isLeft) return store.string() + " was empty";
  return {};
}

Attempt read(const std::filesystem::path& store, std::unique_ptr<PreferencesFile> file,
             Outcome outcome, std::optional<std::uint32_t> lastOfCopy) {
  Attempt opened;
  if (outcome) {
    outcome = file->readAll(
        [&](PreferenceChange change) { opened.contents.push_back(std::move(change)); });
  }
  if (outcome && isBehind(file->lastChange(), lastOfCopy)) {
    return damaged(store.string() + " had lost its last changes");
  }
  if (outcome) {
    opened.file = std::move(file);
    return opened;
  }
  if (file->isDamaged()) return damaged(outcome.error().message);
  return unusable(outcome.error(), file->problem());
}

// The repair lock is taken when a store has to be made, unless it is held.
Attempt attempt(const std::filesystem::path& store, Patience patience, bool isLockHeld) {
  const auto kind = kindOfStore(store);
  if (!kind) return unusable(kind.error(), StorageProblem::unusable);
  if (*kind == StoreKind::foreign) return foreign(store);
  if (auto damage = damageBefore(store, *kind); !damage.empty()) return damaged(std::move(damage));
  const bool isNew = *kind == StoreKind::missing;
  if (isNew) {
    std::optional<RepairLock> lock;
    if (!isLockHeld) lock.emplace(store, patience);
    errno = 0;
    if (auto made = makeStore(store); !made) return unusable(made.error(), problemOf(errno));
  }
  struct stat found {};
  // As private as it should have been made, and no more writable than it is.
  if (::lstat(store.c_str(), &found) == 0 && (found.st_mode & 077U) != 0) {
    ::chmod(store.c_str(), found.st_mode & 0700U);
  }
  // Read before the store: another process may make both newer meanwhile.
  const auto lastOfCopy = lastChangeOfGoodCopy(store);
  auto file = std::make_unique<PreferencesFile>(store);
  if (patience == Patience::none) file->dontWait();
  auto outcome = file->open();
  auto opened = read(store, std::move(file), std::move(outcome), lastOfCopy);
  if (opened.file && (isNew || *kind == StoreKind::empty))
    opened.opening.outcome = StoreOutcome::created;
  return opened;
}

// Everything that can be had of a store, and how it came together.
class Gathering {
public:
  Gathering(const std::filesystem::path& store, std::span<const PreferenceChange> memory) {
    for (const PreferenceChange& change : memory) salvage_.add(change);
    salvage_.addFile(store);
    for (const auto& copy : unfinishedCopiesOf(store)) salvage_.addFile(copy);
    // The good copy does not count: it stays until another has all that it has.
    PreferencesSalvage copy;
    struct stat found {};
    hasCopy_ = ::lstat(goodCopyOf(store).c_str(), &found) == 0;
    copy.addFile(goodCopyOf(store));
    lastOfCopy_ = lastChangeOfGoodCopy(store);
    for (PreferenceChange& change : copy.changes()) {
      if (!salvage_.has(change.key, change.number)) copyTime_ = found.st_mtim.tv_sec;
      salvage_.add(std::move(change));
    }
    contents_ = salvage_.changes();
    keys_ = static_cast<std::size_t>(
        std::count_if(contents_.begin(), contents_.end(),
                      [](const PreferenceChange& change) { return change.value.has_value(); }));
  }

  const std::vector<PreferenceChange>& contents() const { return contents_; }

  // Whether the system gave all of the store's file and log.
  bool hasReadAll() const { return salvage_.hasReadAll(); }

  // The contents with a mark of the recovery behind them.
  std::vector<PreferenceChange> markedContents() const {
    auto marked = contents_;
    std::erase_if(marked,
                  [](const PreferenceChange& change) { return change.key == kRecoveryKey; });
    std::int64_t number =
        contents_.empty() ? 0 : std::max(contents_.back().number, salvage_.lastNumber());
    // The good copy may have had newer changes that cannot be read.
    do {
      number += kRecoveryStep;
    } while (isBehind(number, lastOfCopy_));
    marked.push_back({.key = std::string(kRecoveryKey), .value = std::nullopt, .number = number});
    return marked;
  }

  // What was done with them, when this is what had to be done for and that is where the damaged
  // file is.
  QEVSettings::StoreOpening opening(const std::string& damage, const std::string& end) const {
    QEVSettings::StoreOpening opening;
    const std::size_t lost = salvage_.lostKeys();
    opening.lostKeys = lost;
    opening.message = damage + "; ";
    if (keys_ == 0) {
      opening.outcome = StoreOutcome::begunEmpty;
      opening.message += "no value could be recovered, since ";
      opening.message += hasCopy_ ? "its good copy is damaged too" : "there is no good copy";
      opening.message += ", and the store begins empty";
    } else {
      opening.outcome = StoreOutcome::restored;
      opening.message += count(keys_) + (keys_ == 1 ? " was recovered" : " were recovered");
      if (copyTime_) {
        opening.copyTime =
            PreferenceValue::Date(PreferenceValue::Date::duration(static_cast<double>(*copyTime_)));
        opening.message +=
            ", with the good copy of " + textOfTime(*copyTime_, "%Y-%m-%d %H:%M:%S") + " UTC";
      }
    }
    if (lost > 0) {
      opening.message += "; the last change of " + count(lost) + " is lost";
    }
    opening.message += end;
    return opening;
  }

private:
  static std::string count(std::size_t keys) {
    return std::to_string(keys) + (keys == 1 ? " key" : " keys");
  }

  PreferencesSalvage salvage_;
  std::vector<PreferenceChange> contents_;
  std::size_t keys_ = 0;
  bool hasCopy_ = false;
  std::optional<std::uint32_t> lastOfCopy_;
  std::optional<std::time_t> copyTime_;
};

// Gives the copies of the damaged store their lasting names; the name of the first.
std::string nameDamagedCopies(const std::filesystem::path& store) {
  std::string first;
  for (const auto& copy : unfinishedCopiesOf(store)) {
    const std::string dated =
        store.string() + std::string(kDamaged) + textOfTime(std::time(nullptr), "%Y-%m-%d-%H%M%S");
    std::string name = dated;
    for (int i = 2; isThere(name); ++i) name = dated + "-" + std::to_string(i);
    // The file last: while it has its old name, the copy counts as unfinished, log and all.
    ::rename((copy.string() + "-wal").c_str(), (name + "-wal").c_str());
    if (::rename(copy.c_str(), name.c_str()) == 0 && first.empty()) {
      first = std::filesystem::path(name).filename().string();
    }
  }
  syncFolder(store.parent_path());
  return first;
}

OpenedPreferences withContents(const std::filesystem::path& store, const OpeningRequest& request,
                               const Error& error, StorageProblem problem) {
  auto opened = unusable(error, problem);
  opened.contents = Gathering(store, request.memory).contents();
  return opened;
}

OpenedPreferences recover(const std::filesystem::path& store, const OpeningRequest& request,
                          const std::string& damage) {
  if (!isThere(store)) {
    errno = 0;
    if (auto made = makeStore(store); !made)
      return withContents(store, request, made.error(), problemOf(errno));
  }
  StoreRewrite rewrite(store);
  std::optional<Gathering> gathered;
  auto error = rewrite.run(request.patience, [&]() -> std::optional<std::vector<PreferenceChange>> {
    gathered.emplace(store, request.memory);
    if (!gathered->hasReadAll()) return std::nullopt;
    return gathered->markedContents();
  });
  if (error) {
    return withContents(store, request, Error{damage + ", and the store " + error->message},
                        rewrite.problem());
  }
  const auto name = nameDamagedCopies(store);
  auto opened = attempt(store, request.patience, true);
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

OpenedPreferences openPreferences(const std::filesystem::path& path,
                                  const OpeningRequest& request) {
  if (!path.is_absolute() || !path.has_filename()) {
    return unusable(Error{"'" + path.string() + "' names no file; choose one"},
                    StorageProblem::unusable);
  }
  errno = 0;
  if (auto outcome = makeFolders(path.parent_path()); !outcome)
    return unusable(outcome.error(), problemOf(errno));
  const auto store = withRealFolder(path);
  auto opened = attempt(store, request.patience, false);
  if (opened.damage.empty() && (request.suspicion == Suspicion::none || !opened.file))
    return opened;
  opened.file.reset();
  const RepairLock lock(store, request.patience);
  if (!lock.isHeld()) {
    const bool mayWrite = ::access(store.parent_path().c_str(), W_OK) == 0;
    const Error error{store.string() + " is damaged and cannot be recovered now; " +
                      (mayWrite ? "another process is at it" : "allow writing to its folder")};
    return withContents(store, request, error,
                        mayWrite ? StorageProblem::busy : StorageProblem::notWritable);
  }
  // Another process may have recovered it.
  opened = attempt(store, request.patience, true);
  if (opened.damage.empty() && opened.file && request.suspicion != Suspicion::none) {
    if (request.suspicion == Suspicion::certain || !opened.file->faults().empty()) {
      opened.damage = store.string() + " is damaged";
      opened.file.reset();
    }
  }
  if (opened.damage.empty()) return opened;
  return recover(store, request, opened.damage);
}

OpenedPreferences readPreferences(const std::filesystem::path& path) {
  const auto store = withRealFolder(path);
  const auto kind = kindOfStore(store);
  if (!kind) return unusable(kind.error(), StorageProblem::unusable);
  if (*kind == StoreKind::foreign) return foreign(store);
  std::string damage = damageBefore(store, *kind);
  if (damage.empty() && *kind == StoreKind::missing) {
    return unusable(Error{"there is no store at " + store.string() + "; check the path"},
                    StorageProblem::noFile);
  }
  if (damage.empty() && *kind == StoreKind::empty) return {};
  if (damage.empty()) {
    const auto lastOfCopy = lastChangeOfGoodCopy(store);
    auto file = std::make_unique<PreferencesFile>(store);
    auto outcome = file->openSnapshot();
    auto opened = read(store, std::move(file), std::move(outcome), lastOfCopy);
    opened.file.reset();
    if (opened.damage.empty()) return opened;
    damage = opened.damage;
  }
  const Gathering gathered(store, {});
  OpenedPreferences opened;
  opened.contents = gathered.contents();
  opened.opening = gathered.opening(damage, "; nothing on disk was changed");
  return opened;
}

std::vector<PreferenceChange> takeAbandonedLog(const std::filesystem::path& store) {
  PreferencesSalvage salvage;
  auto log = readRawDatabaseFileIfThere(store.string() + "-wal");
  if (!log) return {};
  salvage.addFile({}, DatabaseLog(*std::move(log)));
  for (const char* ending : {"-wal", "-shm"}) ::unlink((store.string() + ending).c_str());
  return salvage.changes();
}

Outcome keepGoodCopy(const std::filesystem::path& store) {
  for (const bool isFirst : {true, false}) {
    {
      const RepairLock lock(store, Patience::aMoment);
      if (!lock.isHeld()) return Error{"another process is at it"};
      const auto outcome = replaceGoodCopy(store);
      if (outcome == CopyOutcome::done) return done();
      if (outcome == CopyOutcome::failed) break;
    }
    if (isFirst) openPreferences(store, {.suspicion = Suspicion::certain});
  }
  return Error{"the good copy of " + store.string() + " cannot be made"};
}

}  // namespace foundation
