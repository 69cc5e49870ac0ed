#include "PreferencesRecovery.hpp"

#include "FileDescriptor.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <utility>

namespace foundation {

namespace {

constexpr std::string_view kSetAside = ".damaged-";
constexpr std::array<const char*, 2> kCompanions{"-wal", "-journal"};

// Keeps other processes from repairing or copying the same store meanwhile.
class RepairLock {
public:
  RepairLock(const std::filesystem::path& store, Patience patience)
      : file_(::open((store.string() + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)) {
    const int attempts = patience == Patience::none ? 1 : 50;
    for (int i = 0; file_ && i < attempts && !isHeld_; ++i) {
      if (i > 0) ::usleep(10'000);
      isHeld_ = ::flock(file_.get(), LOCK_EX | LOCK_NB) == 0;
    }
  }
  bool isHeld() const { return isHeld_; }

private:
  FileDescriptor file_;
  bool isHeld_ = false;
};

std::string now() {
  const std::time_t time = std::time(nullptr);
  std::tm parts{};
  ::gmtime_r(&time, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d-%H%M%S", &parts)};
}

bool isThere(const std::filesystem::path& path) {
  struct stat found {};
  return ::lstat(path.c_str(), &found) == 0;
}

struct Attempt : OpenedPreferences {
  bool isDamaged = false;
};

Attempt attempt(const std::filesystem::path& store, Patience patience) {
  Attempt opened;
  std::error_code error;
  // A store that is being made never stands there empty.
  if (isThere(goodCopyOf(store)) && std::filesystem::file_size(store, error) == 0 && !error) {
    opened.error = Error{store.string() + " is empty"};
    opened.isDamaged = true;
    return opened;
  }
  auto file = std::make_unique<PreferencesFile>(store);
  if (patience == Patience::none) file->dontWait();
  auto outcome = file->open();
  if (outcome) {
    outcome = file->readChanges([&](PreferenceChange change) { opened.contents.push_back(std::move(change)); });
  }
  if (outcome) {
    opened.file = std::move(file);
  } else {
    opened.error = outcome.error();
    opened.isDamaged = file->isDamaged();
    opened.contents.clear();
  }
  return opened;
}

// The file under a new name, which it says; empty when it cannot be moved.
std::filesystem::path setAside(const std::filesystem::path& path) {
  const std::string dated = path.string() + std::string(kSetAside) + now();
  std::string name = dated;
  for (int i = 2; isThere(name); ++i) name = dated + "-" + std::to_string(i);
  if (::rename(path.c_str(), name.c_str()) != 0) return {};
  for (const char* ending : kCompanions) ::rename((path.string() + ending).c_str(), (name + ending).c_str());
  ::unlink((path.string() + "-shm").c_str());
  return name;
}

// Puts a copy of the good copy in the store's place.
Outcome restore(const std::filesystem::path& store) {
  PreferencesFile copy(goodCopyOf(store));
  const std::filesystem::path temporary = store.string() + ".restored";
  std::error_code error;
  std::filesystem::remove(temporary, error);
  if (auto outcome = copy.openForReading(); !outcome) return outcome;
  if (auto outcome = copy.copyTo(temporary); !outcome) return outcome;
  // A process that found no file may have made an empty one; it finds this one in its place.
  std::filesystem::rename(temporary, store, error);
  if (!error) syncFolder(store.parent_path());
  return error ? Outcome(Error{error.message()}) : done();
}

// What can be read of the good copy where the store itself cannot be repaired.
std::vector<PreferenceChange> contentsOfGoodCopy(const std::filesystem::path& store) {
  std::vector<PreferenceChange> contents;
  PreferencesFile copy(goodCopyOf(store));
  if (copy.openForReading()) {
    const auto outcome = copy.readChanges([&](PreferenceChange change) { contents.push_back(std::move(change)); });
    if (!outcome) contents.clear();
  }
  return contents;
}

}  // namespace

std::filesystem::path goodCopyOf(const std::filesystem::path& store) { return store.string() + ".good"; }

std::vector<std::filesystem::path> setAsideOf(const std::filesystem::path& store) {
  std::vector<std::filesystem::path> found;
  std::error_code error;
  const std::string begin = store.filename().string() + std::string(kSetAside);
  for (const auto& entry : std::filesystem::directory_iterator(store.parent_path(), error)) {
    const std::string name = entry.path().filename().string();
    const bool isCompanion =
        std::any_of(kCompanions.begin(), kCompanions.end(), [&](const char* ending) { return name.ends_with(ending); });
    if (name.starts_with(begin) && !isCompanion) found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

OpenedPreferences openPreferences(const std::filesystem::path& store, Patience patience) {
  auto opened = attempt(store, patience);
  if (opened.isDamaged) {
    const RepairLock lock(store, patience);
    // Another process may have repaired it.
    opened = attempt(store, patience);
    if (opened.isDamaged) {
      const std::string problem = opened.error->message;
      const auto aside = lock.isHeld() ? setAside(store) : std::filesystem::path();
      if (aside.empty()) {
        return {.file = nullptr,
                .contents = contentsOfGoodCopy(store),
                .error = Error{problem + " and cannot be set aside; allow writing to its folder, or move it away"},
                .notice = std::nullopt};
      }
      std::string instead = "there was no copy of it, so the store begins empty";
      if (isThere(goodCopyOf(store))) {
        instead = "its last good copy is in use";
        if (!restore(store)) {
          setAside(goodCopyOf(store));
          instead = "its copy is damaged too, so the store begins empty";
        }
      }
      opened = attempt(store, patience);
      opened.notice = problem + "; it was set aside as " + aside.filename().string() + ", and " + instead;
    }
  }
  return opened;
}

bool isGoodCopyStale(const std::filesystem::path& store) {
  std::error_code error;
  const auto written = std::filesystem::last_write_time(store, error);
  if (error) return false;
  const auto copied = std::filesystem::last_write_time(goodCopyOf(store), error);
  return error || copied < written;
}

Outcome keepGoodCopy(const std::filesystem::path& store) {
  if (!isGoodCopyStale(store)) return done();
  const RepairLock lock(store, Patience::aMoment);
  if (!lock.isHeld()) return Error{"another process is at it"};
  std::error_code error;
  const auto written = std::filesystem::last_write_time(store, error);
  const std::filesystem::path temporary = store.string() + ".copy";
  std::filesystem::remove(temporary, error);
  PreferencesFile source(store);
  if (auto outcome = source.openForReading(); !outcome) return outcome;
  if (auto outcome = source.copyTo(temporary); !outcome) return outcome;
  // What is written to the store from now on makes it newer than its copy. A power cut leaves this copy or the
  // one before, so that the folder needs no syncing.
  std::filesystem::last_write_time(temporary, written, error);
  std::filesystem::rename(temporary, goodCopyOf(store), error);
  return error ? Outcome(Error{error.message()}) : done();
}

}  // namespace foundation
