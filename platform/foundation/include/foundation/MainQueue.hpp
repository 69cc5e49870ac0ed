#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

namespace foundation {

// Work for a later turn of the main thread, in the order in which it was asked for.
//
// The queue has no loop of its own: a window's event loop, or a test, drains it. `async` may be called
// on any thread, everything else on the main thread.
class MainQueue {
public:
  using Work = std::function<void()>;

  // The queue of the process's main thread.
  static MainQueue& mainQueue();

  void async(Work work);

  // Runs what was queued before the call; what that work queues waits for the next turn. Returns
  // whether anything ran.
  bool drain();

  // Drains until nothing is left, at most `turns` turns.
  void drainAll(int turns = 1000);

  // Waits until work is pending, at most so long; says whether it is. For a program without an event loop.
  bool wait(std::chrono::milliseconds longest);

  // Called on the queueing thread when work arrives at an empty queue: the event loop's cue to call
  // `drain` on the main thread. An empty function takes the cue away.
  void setWaker(std::function<void()> waker);

private:
  std::mutex mutex_;
  std::condition_variable arrived_;
  std::vector<Work> pending_;
  std::function<void()> waker_;
};

}  // namespace foundation
