#include "foundation/MainQueue.hpp"

#include <utility>

namespace foundation {

MainQueue& MainQueue::mainQueue() {
  static MainQueue queue;
  return queue;
}

void MainQueue::async(Work work) {
  std::function<void()> waker;
  {
    const std::scoped_lock lock(mutex_);
    if (pending_.empty()) waker = waker_;
    pending_.push_back(std::move(work));
  }
  arrived_.notify_all();
  if (waker) waker();
}

bool MainQueue::drain() {
  std::vector<Work> turn;
  {
    const std::scoped_lock lock(mutex_);
    turn.swap(pending_);
  }
  for (const Work& work : turn) work();
  return !turn.empty();
}

void MainQueue::drainAll(int turns) {
  while (turns-- > 0 && drain()) {
  }
}

bool MainQueue::wait(std::chrono::milliseconds longest) {
  std::unique_lock lock(mutex_);
  return arrived_.wait_for(lock, longest, [this] { return !pending_.empty(); });
}

void MainQueue::setWaker(std::function<void()> waker) {
  bool waiting = false;
  {
    const std::scoped_lock lock(mutex_);
    waker_ = waker;
    waiting = !pending_.empty();
  }
  if (waiting && waker) waker();
}

}  // namespace foundation
