// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/Subscription.hpp"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace foundation {

// Work for a later turn of the main thread, in the order in which it was asked for.
//
// The queue has no loop of its own: a window's event loop, or a test, drains it. A host with
// another event loop watches the descriptor, and sleeps no longer than `pollTimeout`:
//
//     pollfd waiting{.fd = queue.descriptor(), .events = POLLIN, .revents = 0};
//     poll(&waiting, 1, queue.pollTimeout());
//     queue.drain();
//
// `async` may be called on any thread, everything else on the main thread. The process's queue is
// never destroyed: threads of the store may queue work while the process ends.
class MainQueue {
public:
  using Work = std::function<void()>;

  MainQueue() = default;
  ~MainQueue();
  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;

  // The queue of the process's main thread.
  static MainQueue& mainQueue();

  void async(Work work);

  // Runs what was queued before the call; what that work queues waits for the next turn. Returns
  // whether anything ran.
  bool drain();

  // Drains until nothing is left, at most `turns` turns.
  void drainAll(int turns = 1000);

  // Waits until work is pending, at most so long; says whether it is. For a program without an
  // event loop.
  bool wait(std::chrono::milliseconds longest);

  // Called on the queueing thread when work arrives at an empty queue: the event loop's cue to call
  // `drain` on the main thread. An empty function takes the cue away. The previous waker is not
  // running any more when this returns, so a waker must not wait for the main thread.
  void setWaker(std::function<void()> waker);

  // A file descriptor that is readable while work waits for `drain`, the repeated work apart. The
  // host only polls it. It stays the queue's; -1 when the system has none left.
  int descriptor();

  // Runs the work in `drain`, at most once in each interval, until the subscription ends: for work
  // that has no thread to queue it.
  [[nodiscard]] QEVSettings::Subscription repeat(std::chrono::milliseconds interval, Work work);

  // How long an event loop may sleep, in milliseconds, before repeated work is due. -1 when there
  // is none.
  int pollTimeout() const;

private:
  using Clock = std::chrono::steady_clock;
  struct Repeated {
    std::chrono::milliseconds interval{};
    Clock::time_point due;
    std::shared_ptr<const Work> work;
  };

  Clock::time_point nextRepeat() const;
  bool runRepeated();
  void callWaker();

  std::mutex mutex_;
  std::condition_variable arrived_;
  std::vector<Work> pending_;
  std::recursive_mutex wakerMutex_;  // held while the waker runs, which may queue work itself
  std::function<void()> waker_;
  int descriptor_ = -1;  // an eventfd; of `mutex_`
  std::map<std::uint64_t, Repeated> repeated_;
  std::uint64_t nextRepeated_ = 0;
};

}  // namespace foundation
