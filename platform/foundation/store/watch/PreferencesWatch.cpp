// SPDX-License-Identifier: MIT
#include "store/watch/PreferencesWatch.hpp"

#include "foundation/Diagnostics.hpp"
#include "foundation/MainQueue.hpp"
#include "store/watch/CommitStamp.hpp"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <new>
#include <string>
#include <system_error>
#include <utility>

namespace foundation {

namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr milliseconds kShortestRetry(250);
constexpr milliseconds kLongestRetry(8000);
// Between two comparisons of the files, when the system sends no events.
constexpr milliseconds kLookInterval(250);
// A commit changes a file several times, shortly before readers can see it. After an event the
// thread therefore checks again and again. The pause between checks doubles while nothing is found,
// so that a burst of this process's own writes costs few checks. After a find the pause is the
// longest, so that a burst of another process does not wake the main queue for each write.
constexpr microseconds kShortestPause(250);
constexpr microseconds kLongestPause(5000);

std::filesystem::path withCanonicalFolder(const std::filesystem::path& store) {
  std::error_code error;
  const auto folder = std::filesystem::canonical(store.parent_path(), error);
  return error ? store : folder / store.filename();
}

}  // namespace

PreferencesWatch::PreferencesWatch(std::filesystem::path store, Callbacks callbacks,
                                   std::shared_ptr<WatchSystem> system)
    : system_(std::move(system)),
      store_(withCanonicalFolder(store)),
      callbacks_(std::make_shared<const Callbacks>(std::move(callbacks))),
      queuedCallbacks_(callbacks_),
      events_(std::move(store), *system_),
      pause_(kShortestPause),
      wake_(system_->openWake()),
      retryPause_(kShortestRetry) {
  if (events_.descriptor() < 0) lookAt_ = Clock::now() + kLookInterval;
  if (!wake_ || !events_.refusal().empty()) {
    const std::string reason = events_.refusal().empty() ? "" : " (" + events_.refusal() + ")";
    reportOnce("the system cannot watch the folder of " + store_.string() + reason +
               ", so changes by other programs are looked for every 250 ms; raise "
               "fs.inotify.max_user_instances and the number of open files");
  }
  start();
}

PreferencesWatch::~PreferencesWatch() {
  callbacks_.reset();
  {
    const std::scoped_lock lock(mutex_);
    ends_ = true;
  }
  wake();
  if (thread_) thread_->join();
}

void PreferencesWatch::start() {
  if (thread_) return;
  thread_ = system_->startThread([this] { run(); });
  if (thread_) {
    turns_.reset();
    return;
  }
  if (turns_) return;
  turns_ = MainQueue::mainQueue().repeat(kLookInterval, [this] { turnWithoutThread(); });
  reportOnce(
      "the system has no thread left, so changes by other programs are looked for when the main "
      "queue has a turn; raise the number of processes of this user");
}

void PreferencesWatch::reportOnce(const std::string& line) {
  if (!std::exchange(isReported_, true)) reportDiagnostic("preferences: " + line);
}

void PreferencesWatch::retryLater() {
  {
    const std::scoped_lock lock(mutex_);
    if (retryAt_) return;
    retryAt_ = Clock::now() + retryPause_;
    retryPause_ = std::min(2 * retryPause_, kLongestRetry);
  }
  wake();
}

void PreferencesWatch::didSucceed() {
  const std::scoped_lock lock(mutex_);
  retryAt_.reset();
  retryPause_ = kShortestRetry;
}

bool PreferencesWatch::synchronizeLater(milliseconds pause) {
  if (!thread_) return false;
  {
    const std::scoped_lock lock(mutex_);
    if (synchronizeAt_) return true;
    synchronizeAt_ = Clock::now() + pause;
  }
  wake();
  return true;
}

void PreferencesWatch::didSynchronize() {
  const std::scoped_lock lock(mutex_);
  synchronizeAt_.reset();
}

void PreferencesWatch::didWrite() {
  const std::scoped_lock lock(mutex_);
  // The write changed the file, which wakes the thread.
  copyAt_ = Clock::now() + system_->pauseBeforeCopy();
}

void PreferencesWatch::wake() {
  if (!wake_) {
    const std::scoped_lock lock(mutex_);
    isWoken_ = true;
    woken_.notify_one();
    return;
  }
  const std::uint64_t one = 1;
  [[maybe_unused]] const auto written = ::write(wake_.get(), &one, sizeof one);
}

void PreferencesWatch::turnWithoutThread() {
  start();
  if (thread_) return;
  // A callback may destroy this object.
  const auto callbacks = callbacks_;
  const bool mustRetry = isDue(retryAt_);
  if (hasChanged(events_.take())) callbacks->changed();
  if (mustRetry) callbacks->retry();
}

void PreferencesWatch::run() {
  while (true) {
    sleep();
    {
      const std::scoped_lock lock(mutex_);
      if (ends_) return;
    }
    try {
      handleChanges();
      handleDeadlines();
    } catch (const std::bad_alloc&) {
      lookAt_ = Clock::now() + kLookInterval;
    }
  }
}

void PreferencesWatch::sleep() {
  const auto next = nextDeadline();
  if (!wake_) {
    std::unique_lock lock(mutex_);
    woken_.wait_until(lock, std::min(next, Clock::now() + kLookInterval),
                      [this] { return isWoken_; });
    isWoken_ = false;
    return;
  }
  std::array<pollfd, 2> descriptors{
      pollfd{.fd = wake_.get(), .events = POLLIN, .revents = 0},
      pollfd{.fd = lookAt_ ? -1 : events_.descriptor(), .events = POLLIN, .revents = 0}};
  const auto left = std::max(Clock::duration(0), next - Clock::now());
  const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
  const timespec timeout{.tv_sec = seconds.count(),
                         .tv_nsec = std::chrono::nanoseconds(left - seconds).count()};
  ::ppoll(descriptors.data(), descriptors.size(),
          next == Clock::time_point::max() ? nullptr : &timeout, nullptr);
  std::uint64_t count = 0;
  [[maybe_unused]] const auto read = ::read(wake_.get(), &count, sizeof count);
}

PreferencesWatch::Clock::time_point PreferencesWatch::nextDeadline() {
  const std::scoped_lock lock(mutex_);
  constexpr auto never = Clock::time_point::max();
  return std::min({lookAt_.value_or(never), retryAt_.value_or(never), copyAt_.value_or(never),
                   synchronizeAt_.value_or(never)});
}

bool PreferencesWatch::isDue(Deadline& deadline) {
  const std::scoped_lock lock(mutex_);
  if (!deadline || *deadline > Clock::now()) return false;
  deadline.reset();
  return true;
}

void PreferencesWatch::handleChanges() {
  const bool isLook = lookAt_.has_value();
  if (isLook && *lookAt_ > Clock::now()) return;
  const auto news = events_.take();
  if (!isLook && news == FolderEvents::News::none) return;
  lookAt_.reset();
  if (hasChanged(news) && !isChangeQueued_->exchange(true)) {
    queueChanged();
    pause_ = kLongestPause;
    lookAt_ = Clock::now() + pause_;
  } else if (news != FolderEvents::News::none) {
    lookAt_ = Clock::now() + pause_;
    pause_ = std::min(2 * pause_, kLongestPause);
  } else {
    pause_ = kShortestPause;
  }
  if (events_.descriptor() < 0) lookAt_ = Clock::now() + kLookInterval;
}

// Only commits of other processes count. A write of this process changes the files too.
bool PreferencesWatch::hasChanged(FolderEvents::News news) const {
  if (news == FolderEvents::News::files) return true;
  const auto stamp = CommitStamp::newsOf(store_);
  return stamp == CommitStamp::News::some ||
         (stamp == CommitStamp::News::unknown && news == FolderEvents::News::contents);
}

void PreferencesWatch::handleDeadlines() {
  if (isDue(retryAt_)) {
    queue([](const Callbacks& callbacks) { callbacks.retry(); });
  }
  if (isDue(synchronizeAt_) && !system_->synchronizeLog(store_)) {
    queue([](const Callbacks& callbacks) { callbacks.lost(); });
  }
  if (!isDue(copyAt_)) return;
  if (auto recovery = system_->keepCopy(store_)) {
    queue([recovery = *std::move(recovery)](const Callbacks& callbacks) {
      callbacks.recovered(recovery);
    });
  }
}

void PreferencesWatch::queueChanged() {
  try {
    MainQueue::mainQueue().async([weak = queuedCallbacks_, isQueued = isChangeQueued_] {
      *isQueued = false;
      if (const auto callbacks = weak.lock()) callbacks->changed();
    });
  } catch (const std::bad_alloc&) {
    *isChangeQueued_ = false;
    throw;
  }
}

void PreferencesWatch::queue(std::function<void(const Callbacks&)> call) {
  MainQueue::mainQueue().async([weak = queuedCallbacks_, call = std::move(call)] {
    if (const auto callbacks = weak.lock()) call(*callbacks);
  });
}

}  // namespace foundation
