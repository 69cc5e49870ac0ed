// SPDX-License-Identifier: MIT
#include "foundation/FolderWatch.hpp"

#include "foundation/MainQueue.hpp"
#include "foundation/Thread.hpp"
#include "system/FileDescriptor.hpp"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <optional>
#include <thread>
#include <utility>

namespace foundation {

namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 50ms;
constexpr auto kLookInterval = 500ms;
constexpr std::uint32_t kEvents = IN_CREATE | IN_DELETE | IN_CLOSE_WRITE | IN_MOVED_FROM |
                                  IN_MOVED_TO | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;

// The callback, as the main queue holds it. Empty when the watch has ended.
using Callback = std::shared_ptr<std::function<void()>>;

void call(const std::weak_ptr<std::function<void()>>& callback) {
  if (const Callback alive = callback.lock(); alive && *alive) (*alive)();
}

}  // namespace

// The thread, and what it waits on.
class FolderWatch::Waiting {
public:
  Waiting(std::vector<std::filesystem::path> folders, std::function<void()> changed)
      : folders_(std::move(folders)),
        callback_(std::make_shared<std::function<void()>>(std::move(changed))),
        events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
        stop_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
    if (events_ && stop_) addWatches();
    if (isComplete_) thread_ = startThreadWithoutSignals([this] { wait(); });
    if (!thread_) look();
  }

  ~Waiting() {
    if (!thread_) return;
    ::eventfd_write(stop_.get(), 1);
    thread_->join();
  }

private:
  // A folder, and every folder that leads to it: each of them may be made or replaced.
  void addWatches() {
    isComplete_ = true;
    for (const auto& folder : folders_) {
      for (auto part = folder; part.has_relative_path(); part = part.parent_path()) {
        const bool isWatched = ::inotify_add_watch(events_.get(), part.c_str(), kEvents) >= 0;
        if (!isWatched && errno != ENOENT && errno != ENOTDIR && errno != EACCES)
          isComplete_ = false;
      }
    }
  }

  void look() {
    looking_ = MainQueue::mainQueue().repeat(
        kLookInterval, [callback = std::weak_ptr(callback_)] { call(callback); });
  }

  void wait() {
    std::array<pollfd, 2> waiting{{{.fd = events_.get(), .events = POLLIN, .revents = 0},
                                   {.fd = stop_.get(), .events = POLLIN, .revents = 0}}};
    while (true) {
      if (::poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR) return;
      if (waiting[1].revents != 0) return;
      if (waiting[0].revents == 0) continue;
      // Lets the changes that belong together arrive.
      if (::poll(&waiting[1], 1, static_cast<int>(kPause.count())) > 0) return;
      readEvents();
      addWatches();
      MainQueue::mainQueue().async([callback = std::weak_ptr(callback_)] { call(callback); });
    }
  }

  void readEvents() const {
    std::array<char, 16384> buffer{};
    while (::read(events_.get(), buffer.data(), buffer.size()) > 0) {
    }
  }

  std::vector<std::filesystem::path> folders_;
  Callback callback_;
  FileDescriptor events_;
  FileDescriptor stop_;
  bool isComplete_ = false;
  QEVSettings::Subscription looking_;
  std::optional<std::thread> thread_;
};

FolderWatch::FolderWatch(std::vector<std::filesystem::path> folders, std::function<void()> changed)
    : waiting_(std::make_unique<Waiting>(std::move(folders), std::move(changed))) {}

FolderWatch::~FolderWatch() = default;

}  // namespace foundation
