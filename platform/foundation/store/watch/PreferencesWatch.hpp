// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/Subscription.hpp"
#include "store/watch/FolderEvents.hpp"
#include "store/watch/WatchSystem.hpp"
#include "system/FileDescriptor.hpp"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace foundation {

// Watches the files of a store from a thread of its own. The thread also writes the log to the disk
// after a burst, and makes the good copy after 15 s without a write.
//
// Main thread. The system may refuse what this needs, which is reported once in a line of
// diagnostics:
// - without inotify or a free descriptor, the thread compares the files every 250 ms;
// - without a thread, the main queue does so in its turns, and asks for a thread each time.
class PreferencesWatch {
public:
  // Called from the main queue.
  struct Callbacks {
    std::function<void()> changed;  // another process may have written, or a file was replaced
    std::function<void()> retry;    // `retryLater` asked for it
    std::function<void()> lost;     // the disk refused what `synchronizeLater` was to put there
    // Making the good copy found damage, and recovered the store.
    std::function<void(QEVSettings::StoreOpening)> recovered;
  };

  PreferencesWatch(std::filesystem::path store, Callbacks callbacks,
                   std::shared_ptr<WatchSystem> system = std::make_shared<WatchSystem>());
  PreferencesWatch(const PreferencesWatch&) = delete;
  PreferencesWatch& operator=(const PreferencesWatch&) = delete;
  // Waits for the thread's current operation. No callback runs afterwards.
  ~PreferencesWatch();

  // Asks for a call of `retry`, after a pause that doubles with each call up to 8 s, until
  // `didSucceed`.
  void retryLater();
  void didSucceed();

  // Has the thread write the log to the disk after the pause, unless that is pending already. The
  // thread calls `lost` when the disk refuses. Returns false when there is no thread.
  [[nodiscard]] bool synchronizeLater(std::chrono::milliseconds pause);
  // Everything is on the disk: a pending `synchronizeLater` is dropped.
  void didSynchronize();

  // This process wrote to the store. Starts the pause before the good copy anew.
  void didWrite();

private:
  using Clock = std::chrono::steady_clock;
  using Deadline = std::optional<Clock::time_point>;

  void start();
  void turnWithoutThread();
  void reportOnce(const std::string& line);
  void run();
  void wake();
  void sleep();
  Clock::time_point nextDeadline();
  bool isDue(Deadline& deadline);
  void handleChanges();
  bool hasChanged(FolderEvents::News news) const;
  void handleDeadlines();
  void queueChanged();
  void queue(std::function<void(const Callbacks&)> call);

  const std::shared_ptr<WatchSystem> system_;
  const std::filesystem::path store_;
  std::shared_ptr<const Callbacks> callbacks_;
  const std::weak_ptr<const Callbacks>
      queuedCallbacks_;  // the thread must not be the last to own them
  const std::shared_ptr<std::atomic<bool>> isChangeQueued_ =
      std::make_shared<std::atomic<bool>>(false);

  // Used by the thread, or by the main thread while there is no other.
  FolderEvents events_;
  Deadline lookAt_;
  std::chrono::microseconds pause_;

  FileDescriptor wake_;
  std::mutex mutex_;               // of the members down to `ends_`
  std::condition_variable woken_;  // used when there is no descriptor to wake the thread by
  bool isWoken_ = false;
  Deadline retryAt_;
  Deadline copyAt_;
  Deadline synchronizeAt_;
  std::chrono::milliseconds retryPause_;
  bool ends_ = false;

  std::optional<QEVSettings::Subscription> turns_;  // of the main queue, while there is no thread
  bool isReported_ = false;
  std::optional<std::thread> thread_;
};

}  // namespace foundation
