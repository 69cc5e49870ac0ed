#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "foundation/Result.hpp"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace foundation {

class PreferenceObservers;
class PreferencesFile;
struct PreferenceChange;

// The preferences store over one file, shared by every process of the user.
//
//     UserDefaults& defaults = UserDefaults::standardUserDefaults();
//     defaults.setObject("Europe/Berlin", key);  // on disk when this returns
//     defaults.stringForKey(key);                // as the last writer left it, whichever process that was
//
// Reads come from memory and copy no contents; what another process wrote is seen by the next read.
//
// A store whose file cannot be used goes on in memory, and `status` says why: reading serves what could
// be read, and changes that could not be written are tried again with each later write. Main thread.
class UserDefaults final : public QEVSettings::PreferencesStore {
public:
  // The store of this process, opened at first use and never closed before the process ends. Its file is
  // zorvantine/preferences.sqlite in $XDG_CONFIG_HOME, or in ~/.config.
  static UserDefaults& standardUserDefaults();

  // Another file for the standard store. Does nothing after the first use of the store.
  static void setStandardFile(std::filesystem::path path);

  // A store over any file; makes the file and its folders when they are missing, readable by the user alone.
  static std::unique_ptr<UserDefaults> open(const std::filesystem::path& path);

  // A store that nothing outlives.
  static std::unique_ptr<UserDefaults> inMemory();

  ~UserDefaults() override;

  std::optional<QEVSettings::PreferenceValue> objectForKey(std::string_view key) const override;
  QEVSettings::PreferenceDictionary dictionaryRepresentation() const override;
  void setObject(QEVSettings::PreferenceValue value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  [[nodiscard]] QEVSettings::Subscription observe(std::string_view key, Observer observer) override;
  [[nodiscard]] QEVSettings::Subscription observeAll(Observer observer) override;

  // Sets every key of the dictionary in one write, of which either all or nothing reaches the disk.
  // Fails when that was nothing.
  Outcome applyAll(const QEVSettings::PreferenceDictionary& values);

  // Why the file cannot be read, or why the last write is not in it; nothing when all is well.
  std::optional<Error> status() const { return status_; }

  // A descriptor that becomes readable when another process may have changed the store: the cue for an
  // event loop to call `readChanges`, so that observers hear of it without a read. The store keeps the
  // descriptor. -1 when there is nothing to watch.
  int changeDescriptor();

  // Takes over what other processes wrote. Observers hear of it from the next turn of the main queue.
  void readChanges();

private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
  };
  using Image = std::unordered_map<std::string, QEVSettings::PreferenceValue, Hash, std::equal_to<>>;
  using Unsaved = std::unordered_map<std::string, std::optional<QEVSettings::PreferenceValue>, Hash, std::equal_to<>>;
  struct FolderWatch;

  UserDefaults();

  void connect(const std::filesystem::path& path);
  void catchUp() const;
  void write(PreferenceChange change);
  bool put(PreferenceChange change);
  void save();
  void takeOver(PreferenceChange change, std::vector<std::string>& changedKeys) const;
  void announceLater(std::vector<std::string> keys) const;

  std::shared_ptr<PreferenceObservers> observers_;
  std::unique_ptr<PreferencesFile> file_;
  std::filesystem::path path_;
  mutable Image image_;  // a read first takes over what other processes wrote
  mutable std::optional<Error> status_;
  Unsaved unsaved_;
  std::unique_ptr<FolderWatch> watch_;
};

}  // namespace foundation
