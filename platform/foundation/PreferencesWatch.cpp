#include "PreferencesWatch.hpp"

#include "PreferencesRecovery.hpp"
#include "foundation/MainQueue.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace foundation {

namespace {

constexpr std::chrono::milliseconds kShortestPause(250);
constexpr std::chrono::milliseconds kLongestPause(8000);
constexpr std::chrono::seconds kIdleBeforeCopy(15);
constexpr std::chrono::milliseconds kGathering(5);

FileDescriptor watchOf(const std::filesystem::path& folder) {
  constexpr std::uint32_t events = IN_ATTRIB | IN_MODIFY | IN_CREATE | IN_MOVED_TO | IN_DELETE;
  FileDescriptor watch(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  if (watch && ::inotify_add_watch(watch.get(), folder.c_str(), events) < 0) return FileDescriptor();
  return watch;
}

// A log that is gone has been taken over into the store, and was put on disk before.
bool synchronizeLogOf(const std::filesystem::path& store) {
  const FileDescriptor log(::open((store.string() + "-wal").c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
  return log ? ::fdatasync(log.get()) == 0 : errno == ENOENT;
}

}  // namespace

PreferencesWatch::PreferencesWatch(std::filesystem::path store, Callback changed, Callback retry, Callback lost)
    : store_(std::move(store)),
      callbacks_(std::make_shared<Callbacks>()),
      changes_(watchOf(store_.parent_path())),
      wake_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      pause_(kShortestPause) {
  callbacks_->changed = std::move(changed);
  callbacks_->retry = std::move(retry);
  callbacks_->lost = std::move(lost);
  // Signals are the host's business, on threads of its own.
  sigset_t all;
  sigset_t before;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &before);
  thread_ = std::thread([this] { run(); });
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

PreferencesWatch::~PreferencesWatch() {
  {
    const std::scoped_lock lock(mutex_);
    ends_ = true;
  }
  wake();
  thread_.join();
}

void PreferencesWatch::retryLater() {
  {
    const std::scoped_lock lock(mutex_);
    if (retryAt_) return;
    retryAt_ = Clock::now() + pause_;
    pause_ = std::min(2 * pause_, kLongestPause);
  }
  wake();
}

void PreferencesWatch::didSucceed() {
  const std::scoped_lock lock(mutex_);
  retryAt_.reset();
  pause_ = kShortestPause;
}

void PreferencesWatch::synchronizeLater(std::chrono::milliseconds pause) {
  {
    const std::scoped_lock lock(mutex_);
    if (synchronizeAt_) return;
    synchronizeAt_ = Clock::now() + pause;
  }
  wake();
}

void PreferencesWatch::didSynchronize() {
  const std::scoped_lock lock(mutex_);
  synchronizeAt_.reset();
}

void PreferencesWatch::didWrite() {
  const std::scoped_lock lock(mutex_);
  // The thread is awake anyway, for it sees the file change.
  copyAt_ = Clock::now() + kIdleBeforeCopy;
}

void PreferencesWatch::wake() const {
  const std::uint64_t one = 1;
  [[maybe_unused]] const auto written = ::write(wake_.get(), &one, sizeof one);
}

void PreferencesWatch::run() {
  while (true) {
    std::array<pollfd, 2> descriptors{pollfd{.fd = wake_.get(), .events = POLLIN, .revents = 0},
                                      pollfd{.fd = changes_.get(), .events = POLLIN, .revents = 0}};
    ::poll(descriptors.data(), descriptors.size(), timeout());
    std::uint64_t count = 0;
    [[maybe_unused]] const auto read = ::read(wake_.get(), &count, sizeof count);
    {
      const std::scoped_lock lock(mutex_);
      if (ends_) return;
    }
    if ((descriptors[1].revents & POLLIN) != 0) handleChanges();
    handleDeadlines();
  }
}

int PreferencesWatch::timeout() {
  const std::scoped_lock lock(mutex_);
  constexpr auto never = Clock::time_point::max();
  const auto next = std::min({retryAt_.value_or(never), copyAt_.value_or(never), synchronizeAt_.value_or(never)});
  if (next == never) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
  return static_cast<int>(std::max(left, std::chrono::milliseconds(0)).count());
}

void PreferencesWatch::handleChanges() {
  // A write changes the file several times, and a burst many times: one look after them is enough.
  pollfd untilWoken{.fd = wake_.get(), .events = POLLIN, .revents = 0};
  ::poll(&untilWoken, 1, static_cast<int>(kGathering.count()));
  std::array<char, 4096> events{};
  while (::read(changes_.get(), events.data(), events.size()) > 0) {
  }
  if (callbacks_->isChangeQueued.exchange(true)) return;
  MainQueue::mainQueue().async([weak = std::weak_ptr(callbacks_)] {
    if (const auto callbacks = weak.lock()) {
      callbacks->isChangeQueued = false;
      callbacks->changed();
    }
  });
}

void PreferencesWatch::handleDeadlines() {
  const auto isDue = [this](std::optional<Clock::time_point>& deadline) {
    const std::scoped_lock lock(mutex_);
    if (!deadline || *deadline > Clock::now()) return false;
    deadline.reset();
    return true;
  };
  if (isDue(retryAt_)) {
    MainQueue::mainQueue().async([weak = std::weak_ptr(callbacks_)] {
      if (const auto callbacks = weak.lock()) callbacks->retry();
    });
  }
  if (isDue(synchronizeAt_)) {
    if (!synchronizeLogOf(store_)) {
      MainQueue::mainQueue().async([weak = std::weak_ptr(callbacks_)] {
        if (const auto callbacks = weak.lock()) callbacks->lost();
      });
    }
    cueWatchers(store_);
  }
  // A copy that cannot be made now is made later; the store itself is where it matters.
  if (isDue(copyAt_)) static_cast<void>(keepGoodCopy(store_));
}

}  // namespace foundation
