// SPDX-License-Identifier: MIT
#include "foundation/UserDefaults.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "foundation/Diagnostics.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/PreferenceObservers.hpp"
#include "store/PreferencesFile.hpp"
#include "store/watch/PreferencesWatch.hpp"
#include "system/ProcessLimits.hpp"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;
using QEVSettings::Subscription;

namespace {

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

UserDefaults::Access& chosenStandardAccess() {
  static UserDefaults::Access access = UserDefaults::Access::readWrite;
  return access;
}

// Takes other users' rights to our folder away. A folder that is a link belongs to whoever made the
// link.
void makePrivate(const std::filesystem::path& folder) {
  struct stat found {};
  if (::lstat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
      (found.st_mode & 0777) != 0700) {
    ::chmod(folder.c_str(), 0700);
  }
}

}  // namespace

UserDefaults::UserDefaults()
    : observers_(std::make_shared<PreferenceObservers>()),
      storageObservers_(std::make_shared<PreferenceObservers>()) {}

UserDefaults& UserDefaults::standardUserDefaults() {
  static const std::unique_ptr<UserDefaults> store = [] {
    const auto file = standardFile();
    const bool mayChange = chosenStandardAccess() != Access::readOnly;
    if (mayChange && !chosenStandardFile() && !file.empty()) makePrivate(file.parent_path());
    if (!file.empty()) {
      auto opened = open(file, chosenStandardAccess());
      // The standard store does not exist before the first write, which is no problem.
      const bool isNotMade =
          !chosenStandardFile() && opened->storageProblem() == QEVSettings::StorageProblem::noFile;
      return isNotMade ? inMemory() : std::move(opened);
    }
    auto homeless = inMemory();
    const Error error{"there is no home folder to keep preferences in; set XDG_CONFIG_HOME"};
    homeless->opening_.outcome = QEVSettings::StoreOpening::Outcome::inMemory;
    homeless->opening_.message = error.message;
    homeless->setStatus(error, QEVSettings::StorageProblem::noFile);
    return homeless;
  }();
  return *store;
}

void UserDefaults::setStandardFile(std::filesystem::path path) {
  chosenStandardFile() = std::move(path);
}

void UserDefaults::setStandardAccess(Access access) { chosenStandardAccess() = access; }

std::filesystem::path UserDefaults::standardFile() {
  if (const auto& chosen = chosenStandardFile()) return *chosen;
  const auto folder = configurationFolder();
  return folder.empty() ? folder
                        : folder / QEVSettings::HostIdentity::current().id / "preferences.sqlite";
}

std::unique_ptr<UserDefaults> UserDefaults::inMemory() {
  return std::unique_ptr<UserDefaults>(new UserDefaults);
}

std::unique_ptr<UserDefaults> UserDefaults::open(const std::filesystem::path& path, Access access) {
  auto store = inMemory();
  std::error_code error;
  store->path_ = path.is_absolute() ? path : std::filesystem::absolute(path, error);
  store->isShortLived_ = access == Access::shortLived;
  FileLimitSignal::lookUpLimit();
  const auto connected = withinLimits([&] {
    access == Access::readOnly ? store->connectForReading() : store->connect();
    return done();
  });
  if (!connected) store->setStatus(connected.error(), QEVSettings::StorageProblem::failing);
  return store;
}

std::unique_ptr<UserDefaults> UserDefaults::copyInMemory() const {
  auto copy = inMemory();
  catchUp();
  const auto copied = withinMemory([&] {
    copy->image_ = image_;
    return done();
  });
  if (!copied) copy->setStatus(copied.error(), QEVSettings::StorageProblem::failing);
  return copy;
}

const PreferenceValue* UserDefaults::find(std::string_view key) const {
  catchUp();
  const auto found = image_.find(key);
  return found != image_.end() ? &found->second.value : nullptr;
}

PreferenceDictionary UserDefaults::dictionaryRepresentation() const {
  catchUp();
  PreferenceDictionary values;
  for (const auto& [key, kept] : image_) values.emplace(key, kept.value);
  return values;
}

void UserDefaults::setObject(PreferenceValue value, std::string_view key) {
  write(key, std::move(value));
}

void UserDefaults::removeObject(std::string_view key) { write(key, std::nullopt); }

void UserDefaults::write(std::string_view key, std::optional<PreferenceValue> value) {
  // A copy: the value that is replaced may hold the key.
  std::string ownKey;
  bool changed = false;
  closeCutFile();
  catchUp();
  const auto outcome = withinMemory([&] {
    ownKey = key;
    refusal_ = PreferencesFile::refusalOf(ownKey, value ? &*value : nullptr);
    if (refusal_) {
      reportDiagnostic("preferences: " + refusal_->message);
    } else {
      changed = put(ownKey, std::move(value));
    }
    return done();
  });
  if (!outcome) setStatus(outcome.error(), QEVSettings::StorageProblem::failing);
  if (changed) keepsHistory_ = keepsHistory();
  // Setting the same value again retries a write that failed.
  if (changed || !unsaved_.empty()) saveUnlessJustFailed();
  if (changed) observers_->announce(ownKey);
}

Outcome UserDefaults::applyAll(const PreferenceDictionary& values) {
  return applyChanges(Changes(values.begin(), values.end()));
}

Outcome UserDefaults::applyChanges(const Changes& changes) {
  std::vector<std::string> changed;  // as far as anybody observes
  bool isChanged = false;
  const bool isObserved = !observers_->isEmpty();
  closeCutFile();
  catchUp();
  auto outcome = withinMemory([&]() -> Outcome {
    for (const auto& [key, value] : changes) {
      if (auto refusal = PreferencesFile::refusalOf(key, value ? &*value : nullptr))
        return *std::move(refusal);
    }
    if (!changes.empty()) refusal_.reset();
    for (const auto& [key, value] : changes) {
      if (!put(key, value)) continue;
      isChanged = true;
      if (isObserved) changed.push_back(key);
    }
    return done();
  });
  if (!outcome && !isChanged) return outcome;
  if (isChanged) keepsHistory_ = keepsHistory();
  if (isChanged || !unsaved_.empty()) save();
  for (const std::string& key : changed) observers_->announce(key);
  return status_ ? Outcome(*status_) : done();
}

// Puts a change that is not refused into the image and among the unsaved ones; returns whether it
// changes anything.
bool UserDefaults::put(const std::string& key, std::optional<PreferenceValue> value) {
  const auto found = image_.find(key);
  if (found == image_.end() ? !value : value == found->second.value) return false;
  // Before the image, so that a lack of memory cannot leave a change in the image that is never
  // written.
  if (!path_.empty()) unsaved_.insert_or_assign(key, Pending{.value = value});
  if (!value) {
    removed_[key] = found->second.number;
    image_.erase(found);
  } else if (found != image_.end()) {
    found->second.value = *std::move(value);
  } else {
    const auto removed = removed_.find(key);
    const std::int64_t number = removed != removed_.end() ? removed->second : 0;
    image_.emplace(key, Kept{.value = *std::move(value), .number = number});
    if (removed != removed_.end()) removed_.erase(removed);
  }
  return true;
}

Subscription UserDefaults::observe(std::string_view key, Observer observer) {
  startWatch();
  return observers_->observe(key, std::move(observer));
}

Subscription UserDefaults::observeAll(Observer observer) {
  startWatch();
  return observers_->observeAll(std::move(observer));
}

QEVSettings::StoreOpening UserDefaults::opening() const { return opening_; }

std::optional<QEVSettings::StorageProblem> UserDefaults::storageProblem() const { return problem_; }

Subscription UserDefaults::observeStorage(std::function<void()> observer) {
  return storageObservers_->observeAll(
      [observer = std::move(observer)](std::string_view) { observer(); });
}

void UserDefaults::readChanges() { catchUp(); }

void UserDefaults::announceLater(std::vector<std::string> keys) const {
  if (keys.empty() || observers_->isEmpty()) return;
  MainQueue::mainQueue().async([observers = std::weak_ptr(observers_), keys = std::move(keys)] {
    for (const std::string& key : keys) {
      if (const auto alive = observers.lock()) alive->announce(key);
    }
  });
}

void UserDefaults::announceStorageLater() const {
  if (storageObservers_->isEmpty()) return;
  MainQueue::mainQueue().async([observers = std::weak_ptr(storageObservers_)] {
    if (const auto alive = observers.lock()) alive->announce({});
  });
}

}  // namespace foundation
