// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/PreferenceHistory.hpp"
#include "foundation/Result.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace foundation {

class PreferenceObservers;
class PreferencesFile;
class PreferencesWatch;
struct PreferenceChange;
enum class Suspicion;

// The preferences store over one file, shared by every process of the user.
//
//     UserDefaults& defaults = UserDefaults::standardUserDefaults();
//     defaults.setObject("Europe/Berlin", key);  // kept, whatever becomes of this process
//     defaults.stringForKey(key);                // the text of the last writer in any process
//
// A write that returned survives the end of the process, however sudden. It survives a power cut
// too, unless the last write was less than 20 ms before: a burst of writes waits for the disk
// together, on a thread of the store, 20 ms later at most. `synchronize` waits for it at once.
//
// Reads come from memory and copy no contents; what another process wrote is seen by the next read,
// and observers hear of it from the main queue some milliseconds later. For that, and to try again
// what could not be written, a store that is observed or written to keeps a thread, which only
// waits.
//
// A damaged file is recovered from what can be read of it, from the good copy that the store makes
// by itself, and from memory, whenever the damage is met; `opening` says so. A store whose file
// cannot be used goes on in memory, and `status` says why: reading serves what could be read, and
// changes are written as soon as that becomes possible. A file that is no store is left alone. Each
// such event is one line of diagnostics. Main thread.
class UserDefaults final : public QEVSettings::PreferencesStore {
public:
  // How a store uses its file.
  enum class Access {
    readWrite,
    // As readWrite, for a process that ends after a few writes. Keeps no thread unless the store is
    // observed. A write survives a power cut when `synchronize` has returned, which waits for the
    // disk once for all of them. Renews the good copy only when that lacks 32 changes or is a day
    // old.
    shortLived,
    // Creates and writes nothing on disk, not even files next to its own. Its own changes stay in
    // memory.
    readOnly
  };

  // The store of this process, opened at first use and closed when the process ends. Its file is
  // ID/preferences.sqlite in $XDG_CONFIG_HOME or ~/.config, with the id of
  // QEVSettings::HostIdentity.
  static UserDefaults& standardUserDefaults();

  // Another file for the standard store, or less access to it. Neither does anything after the
  // first use of the store.
  static void setStandardFile(std::filesystem::path path);
  static void setStandardAccess(Access access);

  // Where the standard store's file is; empty when there is no home folder for it.
  static std::filesystem::path standardFile();

  // A store over any file; makes the file and its folders when they are missing, readable by the
  // user alone. A store for reading holds what the file held when it was opened, or what could be
  // had of a damaged one.
  static std::unique_ptr<UserDefaults> open(const std::filesystem::path& path,
                                            Access access = Access::readWrite);

  // A store that nothing outlives.
  static std::unique_ptr<UserDefaults> inMemory();

  // A store in memory that begins with the values of this one. What is done to either does not
  // reach the other.
  std::unique_ptr<UserDefaults> copyInMemory() const;

  // Tries once more to write what is not written yet, and sees to the good copy.
  ~UserDefaults() override;

  const QEVSettings::PreferenceValue* find(std::string_view key) const override;
  QEVSettings::PreferenceDictionary dictionaryRepresentation() const override;
  // A value that no file can hold (nested deeper than 512 levels, or above 999 MB) is refused: the
  // key keeps its value, and `status` says why until the next value that is not refused.
  void setObject(QEVSettings::PreferenceValue value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  [[nodiscard]] QEVSettings::Subscription observe(std::string_view key, Observer observer) override;
  [[nodiscard]] QEVSettings::Subscription observeAll(Observer observer) override;

  QEVSettings::StoreOpening opening() const override;
  std::optional<QEVSettings::StorageProblem> storageProblem() const override;
  [[nodiscard]] QEVSettings::Subscription observeStorage(std::function<void()> observer) override;

  // Sets every key of the dictionary in one write, of which either all or nothing reaches the disk.
  // Fails when that was nothing; a dictionary with a value that is refused changes nothing at all.
  Outcome applyAll(const QEVSettings::PreferenceDictionary& values);

  // The same for new values and removals: a key without a value is removed.
  using Changes = std::map<std::string, std::optional<QEVSettings::PreferenceValue>, std::less<>>;
  Outcome applyChanges(const Changes& changes);

  // What the store remembers of its changes from now on. A store without rules keeps a history
  // unless its own value of kKeepsHistory is false.
  void setHistoryRules(HistoryRules rules) { historyRules_ = std::move(rules); }

  // The remembered changes of a key, or of every key if it is empty, the newest first. Reads the
  // file. A store in memory remembers nothing. Fails when the file cannot be read.
  Result<std::vector<RememberedChange>> history(std::string_view key = {}) const;

  // Returns when all that was written survives a power cut; fails when that cannot be had.
  Outcome synchronize();

  // Why the last value was refused, why the file cannot be read, or why the last write is not in
  // it; nothing when all is well.
  std::optional<Error> status() const { return refusal_ ? refusal_ : status_; }

  // Takes over what other processes wrote, as every read does. Observers hear of it from the next
  // turn of the main queue.
  void readChanges();

private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const {
      return std::hash<std::string_view>{}(key);
    }
  };
  struct Kept {
    QEVSettings::PreferenceValue value;
    std::int64_t number =
        0;  // of the row that the value came from or went to; 0 before there is one
  };
  using Image = std::unordered_map<std::string, Kept, Hash, std::equal_to<>>;
  using Removed = std::unordered_map<std::string, std::int64_t, Hash, std::equal_to<>>;
  struct Pending {
    std::optional<QEVSettings::PreferenceValue> value;
    std::int64_t number = 0;  // of the row that the file had and lost; 0 for a new change
  };
  using Unsaved = std::unordered_map<std::string, Pending, Hash, std::equal_to<>>;

  UserDefaults();

  void connect();
  void connectForReading();
  Outcome reconnect(Suspicion suspicion);
  void didRecover(QEVSettings::StoreOpening opening);
  void closeCutFile();
  void setOpening(QEVSettings::StoreOpening opening);
  std::vector<PreferenceChange> rememberedChanges() const;
  void takeOverFile(std::vector<PreferenceChange> contents, bool isWritten);
  void takeOverNewer(std::vector<PreferenceChange> changes);
  void catchUp() const;
  void takeOverChanges();
  void write(std::string_view key, std::optional<QEVSettings::PreferenceValue> value);
  bool put(const std::string& key, std::optional<QEVSettings::PreferenceValue> value);
  bool keepsHistory() const;
  bool isInForce(const RememberedChange& change) const;
  void saveUnlessJustFailed();
  void save();
  Outcome saveOnce(Suspicion suspicion);
  void didWrite(const std::vector<PreferenceChange>& changes);
  Outcome synchronizeOrLater();
  void keepAll();
  std::int64_t numberOf(std::string_view key) const;
  void setNumber(const std::string& key, std::int64_t number);
  void takeOver(PreferenceChange change, std::vector<std::string>& changedKeys);
  void announceLater(std::vector<std::string> keys) const;
  void setStatus(std::optional<Error> status, std::optional<QEVSettings::StorageProblem> problem);
  void announceStorageLater() const;
  void startWatch();

  std::shared_ptr<PreferenceObservers> observers_;
  std::shared_ptr<PreferenceObservers> storageObservers_;
  std::filesystem::path path_;          // empty for a store in memory
  std::filesystem::path readOnlyPath_;  // of the file that a store in memory was read from
  bool isShortLived_ = false;
  std::unique_ptr<PreferencesFile> file_;
  // A read takes over first what other processes wrote, and recovers a file that it finds damaged.
  UserDefaults& self_ = *this;
  Image image_;
  Removed removed_;  // keys that were removed, with the numbers of their rows
  Unsaved unsaved_;  // what the file lacks
  HistoryRules historyRules_;
  bool keepsHistory_ = true;      // as the rules said at the last change
  std::optional<Error> status_;   // of the file
  std::optional<Error> refusal_;  // of the last value that was set
  std::optional<QEVSettings::StorageProblem> problem_;
  QEVSettings::StoreOpening opening_;
  std::chrono::steady_clock::time_point failed_;
  std::chrono::steady_clock::time_point written_;
  std::unique_ptr<PreferencesWatch> watch_;
};

}  // namespace foundation
