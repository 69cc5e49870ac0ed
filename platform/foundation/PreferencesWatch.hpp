#pragma once

#include "FileDescriptor.hpp"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace foundation {

// Looks after a store's file from a thread of its own, and has the main queue call back: when somebody may
// have written, and when it is time to try again what failed. Has the writes of a burst put on disk, and makes the good
// copy by itself when there was no writing for a while.
class PreferencesWatch {
public:
  using Callback = std::function<void()>;

  PreferencesWatch(std::filesystem::path store, Callback changed, Callback retry, Callback lost);
  PreferencesWatch(const PreferencesWatch&) = delete;
  PreferencesWatch& operator=(const PreferencesWatch&) = delete;
  // No callback runs afterwards.
  ~PreferencesWatch();

  // Asks for a call of `retry`, after a pause that grows with each that is asked for until `didSucceed`.
  void retryLater();
  void didSucceed();

  // Has what was written to the store put on disk so much later, unless that is under way; calls `lost` when the
  // disk refuses.
  void synchronizeLater(std::chrono::milliseconds pause);
  // That is done, and needs no doing again.
  void didSynchronize();

  // Somebody of this process wrote.
  void didWrite();

private:
  using Clock = std::chrono::steady_clock;
  struct Callbacks {
    Callback changed;
    Callback retry;
    Callback lost;
    std::atomic<bool> isChangeQueued = false;
  };

  void run();
  void wake() const;
  int timeout();
  void handleChanges();
  void handleDeadlines();

  const std::filesystem::path store_;
  const std::shared_ptr<Callbacks> callbacks_;
  FileDescriptor changes_;  // of the folder: SQLite's log next to the file is made and removed as it goes
  FileDescriptor wake_;
  std::mutex mutex_;
  std::optional<Clock::time_point> retryAt_;
  std::optional<Clock::time_point> copyAt_;
  std::optional<Clock::time_point> synchronizeAt_;
  std::chrono::milliseconds pause_;
  bool ends_ = false;
  std::thread thread_;
};

}  // namespace foundation
