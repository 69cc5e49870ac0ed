#include "foundation/UserDefaults.hpp"

#include "PreferenceObservers.hpp"
#include "PreferencesFile.hpp"
#include "PreferencesRecovery.hpp"
#include "PreferencesWatch.hpp"
#include "foundation/Diagnostics.hpp"
#include "foundation/MainQueue.hpp"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;
using QEVSettings::Subscription;

namespace {

using Clock = std::chrono::steady_clock;

// Writes that follow each other quicker are one burst, which a thread puts on disk once in this time.
constexpr std::chrono::milliseconds kBurst(20);
// What could not be written is not tried again with every write.
constexpr std::chrono::milliseconds kPauseAfterFailure(250);

// A relative path in one of these variables counts as none.
std::filesystem::path folderFromEnvironment(const char* variable) {
  const char* text = std::getenv(variable);
  const std::filesystem::path path = text != nullptr ? text : "";
  return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path configurationFolder() {
  if (auto folder = folderFromEnvironment("XDG_CONFIG_HOME"); !folder.empty()) return folder;
  if (auto home = folderFromEnvironment("HOME"); !home.empty()) return home / ".config";
  const passwd* user = ::getpwuid(::getuid());
  if (user == nullptr || user->pw_dir == nullptr || *user->pw_dir != '/') return {};
  return std::filesystem::path(user->pw_dir) / ".config";
}

std::optional<std::filesystem::path>& chosenStandardFile() {
  static std::optional<std::filesystem::path> path;
  return path;
}

bool mayBeWritten(const std::filesystem::path& path) {
  return ::access(path.c_str(), W_OK) == 0 && ::access(path.parent_path().c_str(), W_OK) == 0;
}

// A small store is copied whenever it is closed after a change; one that takes long, now and then.
bool isCopyWorthwhile(const std::filesystem::path& store) {
  constexpr std::uintmax_t smallBytes = std::uintmax_t{1} << 20;
  constexpr auto longAgo = std::chrono::hours(1);
  if (!isGoodCopyStale(store)) return false;
  std::error_code error;
  const auto size = std::filesystem::file_size(store, error);
  if (!error && size <= smallBytes) return true;
  const auto copied = std::filesystem::last_write_time(goodCopyOf(store), error);
  return error || std::filesystem::file_time_type::clock::now() - copied > longAgo;
}

}  // namespace

UserDefaults::UserDefaults() : observers_(std::make_shared<PreferenceObservers>()) {}

UserDefaults::~UserDefaults() {
  watch_.reset();
  static_cast<void>(synchronize());
  // The watch that saving may have asked for.
  watch_.reset();
  if (file_ && !file_->isReadOnly() && isCopyWorthwhile(path_)) static_cast<void>(keepGoodCopy(path_));
}

UserDefaults& UserDefaults::standardUserDefaults() {
  // The store's watching thread posts to the main queue until the store is destroyed, so the queue is made
  // first and destroyed last.
  static_cast<void>(MainQueue::mainQueue());
  static const std::unique_ptr<UserDefaults> store = [] {
    const auto file = standardFile();
    if (!chosenStandardFile() && !file.empty()) ::chmod(file.parent_path().c_str(), 0700);
    if (!file.empty()) return open(file);
    auto homeless = inMemory();
    homeless->setStatus(Error{"there is no home folder to keep preferences in; set XDG_CONFIG_HOME"});
    return homeless;
  }();
  return *store;
}

void UserDefaults::setStandardFile(std::filesystem::path path) { chosenStandardFile() = std::move(path); }

void UserDefaults::setStandardAccess(Access) {}

std::filesystem::path UserDefaults::standardFile() {
  if (const auto& chosen = chosenStandardFile()) return *chosen;
  const auto folder = configurationFolder();
  return folder.empty() ? folder : folder / "zorvantine" / "preferences.sqlite";
}

std::unique_ptr<UserDefaults> UserDefaults::inMemory() { return std::unique_ptr<UserDefaults>(new UserDefaults); }

std::unique_ptr<UserDefaults> UserDefaults::open(const std::filesystem::path& path, Access) {
  auto store = inMemory();
  std::error_code error;
  store->path_ = std::filesystem::absolute(path, error);
  store->connect();
  return store;
}

std::unique_ptr<UserDefaults> UserDefaults::copyInMemory() const {
  auto copy = inMemory();
  catchUp();
  copy->image_ = image_;
  return copy;
}

QEVSettings::StoreOpening UserDefaults::opening() const { return {}; }

std::optional<QEVSettings::StorageProblem> UserDefaults::storageProblem() const {
  return status_ ? std::optional(QEVSettings::StorageProblem::failing) : std::nullopt;
}

Subscription UserDefaults::observeStorage(std::function<void()>) { return {}; }

void UserDefaults::connect() {
  auto opened = openPreferences(path_);
  image_.reserve(opened.contents.size());
  // Copies of the keys lie next to each other, which look-ups feel: the keys as read lie between the values.
  for (const PreferenceChange& change : opened.contents) {
    if (change.value) image_.insert_or_assign(std::string(change.key), *change.value);
  }
  file_ = std::move(opened.file);
  if (opened.notice) reportDiagnostic("preferences: " + *opened.notice);
  setStatus(std::move(opened.error));
}

// Opens the file anew: it could not be used so far, or it is another one by now. What it holds counts, but for
// what is still to be written; what only the memory holds is written to it.
void UserDefaults::reconnect() {
  auto opened = openPreferences(path_, status_ ? Patience::none : Patience::aMoment);
  if (opened.notice) reportDiagnostic("preferences: " + *opened.notice);
  if (!opened.file) {
    setStatus(std::move(opened.error));
    return;
  }
  const bool isFirst = !file_ && image_.empty();
  file_ = std::move(opened.file);
  std::unordered_set<std::string> found;
  std::vector<std::string> changedKeys;
  for (PreferenceChange& change : opened.contents) {
    if (!isFirst) found.insert(change.key);
    takeOver(std::move(change), changedKeys);
  }
  for (const auto& [key, value] : image_) {
    if (!isFirst && !found.contains(key)) unsaved_.try_emplace(key, value);
  }
  announceLater(std::move(changedKeys));
}

const PreferenceValue* UserDefaults::find(std::string_view key) const {
  catchUp();
  const auto found = image_.find(key);
  return found != image_.end() ? &found->second : nullptr;
}

PreferenceDictionary UserDefaults::dictionaryRepresentation() const {
  catchUp();
  return {image_.begin(), image_.end()};
}

void UserDefaults::setObject(PreferenceValue value, std::string_view key) {
  write({.key = std::string(key), .value = std::move(value)});
}

void UserDefaults::removeObject(std::string_view key) { write({.key = std::string(key), .value = std::nullopt}); }

void UserDefaults::write(PreferenceChange change) {
  const std::string key = change.key;
  const bool changed = put(std::move(change));
  // The same value again is still a chance for what could not be saved before.
  if (changed || !unsaved_.empty()) saveUnlessJustFailed();
  if (changed) observers_->announce(key);
}

Outcome UserDefaults::applyAll(const PreferenceDictionary& values) {
  for (const auto& [key, value] : values) {
    if (auto refusal = PreferencesFile::refusalOf({.key = key, .value = value})) return *std::move(refusal);
  }
  std::vector<std::string> changed;
  for (const auto& [key, value] : values) {
    if (put({.key = key, .value = value})) changed.push_back(key);
  }
  if (!changed.empty() || !unsaved_.empty()) save();
  for (const std::string& key : changed) observers_->announce(key);
  return status_ ? Outcome(*status_) : done();
}

Subscription UserDefaults::observe(std::string_view key, Observer observer) {
  startWatch();
  return observers_->observe(key, std::move(observer));
}

Subscription UserDefaults::observeAll(Observer observer) {
  startWatch();
  return observers_->observeAll(std::move(observer));
}

void UserDefaults::readChanges() { catchUp(); }

void UserDefaults::catchUp() const {
  if (file_ && file_->mayHaveChanged()) takeOverChanges();
}

void UserDefaults::takeOverChanges() const {
  std::vector<std::string> changedKeys;
  const auto outcome = file_->readChanges([&](PreferenceChange change) { takeOver(std::move(change), changedKeys); });
  if (!outcome) setStatus(outcome.error());
  announceLater(std::move(changedKeys));
}

// Puts a change into the image and among the unsaved ones; says whether it changes anything.
bool UserDefaults::put(PreferenceChange change) {
  catchUp();
  if (auto refusal = PreferencesFile::refusalOf(change)) {
    setStatus(std::move(refusal));
    return false;
  }
  const auto found = image_.find(change.key);
  if (found == image_.end() ? !change.value : change.value == found->second) return false;
  if (!change.value) {
    image_.erase(found);
  } else if (found != image_.end()) {
    found->second = *change.value;
  } else {
    image_.emplace(change.key, *change.value);
  }
  if (!path_.empty()) unsaved_.insert_or_assign(std::move(change.key), std::move(change.value));
  return true;
}

Outcome UserDefaults::synchronize() {
  if (!unsaved_.empty()) save();
  if (file_ && unsaved_.empty()) {
    if (auto outcome = file_->synchronize(); !outcome) return outcome;
    if (watch_) watch_->didSynchronize();
  }
  return status_ ? Outcome(*status_) : done();
}

void UserDefaults::saveUnlessJustFailed() {
  if (!status_ || Clock::now() - failed_ >= kPauseAfterFailure) save();
}

void UserDefaults::save() {
  if (path_.empty()) return;
  startWatch();
  auto outcome = saveOnce();
  if (!outcome && file_ && file_->isDamaged()) {
    // The memory is the best copy that there is.
    keepAll();
    file_.reset();
    outcome = saveOnce();
  }
  if (outcome) {
    unsaved_.clear();
    setStatus(std::nullopt);
    watch_->didSucceed();
    watch_->didWrite();
  } else {
    failed_ = Clock::now();
    setStatus(outcome.error());
    watch_->retryLater();
  }
}

Outcome UserDefaults::saveOnce() {
  if (!file_ || file_->isReplaced() || (file_->isReadOnly() && mayBeWritten(path_))) reconnect();
  if (!file_) return status_ ? *status_ : Error{path_.string() + " cannot be opened"};
  std::vector<PreferenceChange> changes;
  changes.reserve(unsaved_.size());
  for (const auto& [key, value] : unsaved_) changes.push_back({.key = key, .value = value});
  std::vector<std::string> changedKeys;
  auto outcome = file_->write(changes, [&](PreferenceChange change) { takeOver(std::move(change), changedKeys); });
  announceLater(std::move(changedKeys));
  return outcome ? synchronizeOrLater() : outcome;
}

Outcome UserDefaults::synchronizeOrLater() {
  auto outcome = done();
  if (Clock::now() - written_ < kBurst) {
    watch_->synchronizeLater(kBurst);
  } else {
    outcome = file_->synchronize();
  }
  written_ = Clock::now();
  return outcome;
}

void UserDefaults::keepAll() {
  for (const auto& [key, value] : image_) unsaved_.try_emplace(key, value);
}

// A change that another process made. One of ours to the same key that is still to be written is newer.
void UserDefaults::takeOver(PreferenceChange change, std::vector<std::string>& changedKeys) const {
  if (unsaved_.contains(change.key)) return;
  const auto found = image_.find(change.key);
  if (found == image_.end() ? !change.value : change.value == found->second) return;
  if (change.value) {
    image_.insert_or_assign(change.key, *std::move(change.value));
  } else {
    image_.erase(found);
  }
  changedKeys.push_back(std::move(change.key));
}

void UserDefaults::announceLater(std::vector<std::string> keys) const {
  if (keys.empty() || observers_->isEmpty()) return;
  MainQueue::mainQueue().async([observers = std::weak_ptr(observers_), keys = std::move(keys)] {
    for (const std::string& key : keys) {
      if (const auto alive = observers.lock()) alive->announce(key);
    }
  });
}

// A problem is said once, when it begins.
void UserDefaults::setStatus(std::optional<Error> status) const {
  if (status && !status_) reportDiagnostic("preferences: " + status->message);
  status_ = std::move(status);
}

void UserDefaults::startWatch() {
  if (watch_ || path_.empty()) return;
  watch_ = std::make_unique<PreferencesWatch>(
      path_,
      [this] {
        if (file_ && file_->isReplaced()) {
          reconnect();
          if (!unsaved_.empty()) save();
        }
        catchUp();
      },
      [this] {
        if (!unsaved_.empty()) save();
      },
      [this] {
        keepAll();
        save();
      });
  // What came before the watch gives no cue.
  catchUp();
}

}  // namespace foundation
