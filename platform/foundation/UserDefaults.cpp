#include "foundation/UserDefaults.hpp"

#include "PreferenceObservers.hpp"
#include "PreferencesFile.hpp"
#include "foundation/MainQueue.hpp"

#include <pwd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
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

}  // namespace

// Watches the folder rather than the file: SQLite's log next to it is made and removed as it goes.
struct UserDefaults::FolderWatch {
  explicit FolderWatch(const std::filesystem::path& folder) : descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    constexpr std::uint32_t events = IN_ATTRIB | IN_MODIFY | IN_CREATE | IN_MOVED_TO;
    if (descriptor >= 0 && ::inotify_add_watch(descriptor, folder.c_str(), events) < 0) {
      ::close(descriptor);
      descriptor = -1;
    }
  }
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;
  ~FolderWatch() {
    if (descriptor >= 0) ::close(descriptor);
  }

  void empty() const {
    std::array<char, 4096> events{};
    while (descriptor >= 0 && ::read(descriptor, events.data(), events.size()) > 0) {
    }
  }

  int descriptor;
};

UserDefaults::UserDefaults() : observers_(std::make_shared<PreferenceObservers>()) {}
UserDefaults::~UserDefaults() = default;

UserDefaults& UserDefaults::standardUserDefaults() {
  static const std::unique_ptr<UserDefaults> store = [] {
    if (const auto& chosen = chosenStandardFile()) return open(*chosen);
    if (const auto folder = configurationFolder(); !folder.empty()) {
      return open(folder / "zorvantine" / "preferences.sqlite");
    }
    auto homeless = inMemory();
    homeless->status_ = Error{"there is no home folder to keep preferences in; set XDG_CONFIG_HOME"};
    return homeless;
  }();
  return *store;
}

void UserDefaults::setStandardFile(std::filesystem::path path) { chosenStandardFile() = std::move(path); }

std::unique_ptr<UserDefaults> UserDefaults::inMemory() { return std::unique_ptr<UserDefaults>(new UserDefaults); }

std::unique_ptr<UserDefaults> UserDefaults::open(const std::filesystem::path& path) {
  auto store = inMemory();
  store->connect(path);
  return store;
}

void UserDefaults::connect(const std::filesystem::path& path) {
  std::error_code error;
  path_ = std::filesystem::absolute(path, error);
  auto opened = PreferencesFile::open(path);
  if (!opened) {
    status_ = opened.error();
    return;
  }
  const auto outcome = (*opened)->readChanges([this](PreferenceChange change) {
    if (change.value) image_.insert_or_assign(std::move(change.key), std::move(*change.value));
  });
  // A file that cannot be read to its end is not written to: what it still holds may be rescued.
  if (outcome) {
    file_ = *std::move(opened);
  } else {
    status_ = outcome.error();
  }
}

std::optional<PreferenceValue> UserDefaults::objectForKey(std::string_view key) const {
  catchUp();
  const auto found = image_.find(key);
  return found != image_.end() ? std::optional(found->second) : std::nullopt;
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
  if (changed || !unsaved_.empty()) save();
  if (changed) observers_->announce(key);
}

Outcome UserDefaults::applyAll(const PreferenceDictionary& values) {
  for (const auto& [key, value] : values) {
    if (!file_) break;
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
  return observers_->observe(key, std::move(observer));
}

Subscription UserDefaults::observeAll(Observer observer) { return observers_->observeAll(std::move(observer)); }

int UserDefaults::changeDescriptor() {
  if (!file_) return -1;
  if (!watch_) {
    watch_ = std::make_unique<FolderWatch>(path_.parent_path());
    // What came before the watch gives no cue.
    readChanges();
  }
  return watch_->descriptor;
}

void UserDefaults::readChanges() {
  if (watch_) watch_->empty();
  catchUp();
}

void UserDefaults::catchUp() const {
  if (!file_ || !file_->mayHaveChanged()) return;
  std::vector<std::string> changedKeys;
  const auto outcome = file_->readChanges([&](PreferenceChange change) { takeOver(std::move(change), changedKeys); });
  if (!outcome) status_ = outcome.error();
  announceLater(std::move(changedKeys));
}

// Puts a change into the image and among the unsaved ones; says whether it changes anything.
bool UserDefaults::put(PreferenceChange change) {
  catchUp();
  if (file_) {
    if (auto refusal = PreferencesFile::refusalOf(change)) {
      status_ = std::move(refusal);
      return false;
    }
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
  if (file_) unsaved_.insert_or_assign(std::move(change.key), std::move(change.value));
  return true;
}

void UserDefaults::save() {
  if (!file_) return;
  std::vector<PreferenceChange> changes;
  changes.reserve(unsaved_.size());
  for (const auto& [key, value] : unsaved_) changes.push_back({.key = key, .value = value});
  std::vector<std::string> changedKeys;
  const auto outcome =
      file_->write(changes, [&](PreferenceChange change) { takeOver(std::move(change), changedKeys); });
  if (outcome) {
    unsaved_.clear();
    status_.reset();
  } else {
    status_ = outcome.error();
  }
  announceLater(std::move(changedKeys));
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

}  // namespace foundation
