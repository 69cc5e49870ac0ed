// SPDX-License-Identifier: MIT
#include "foundation/MainQueue.hpp"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace foundation {

MainQueue::~MainQueue() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

MainQueue& MainQueue::mainQueue() {
  static auto* const queue = std::make_unique<MainQueue>().release();
  return *queue;
}

void MainQueue::async(Work work) {
  bool isFirst = false;
  {
    const std::scoped_lock lock(mutex_);
    isFirst = pending_.empty();
    pending_.push_back(std::move(work));
    if (isFirst && descriptor_ >= 0) ::eventfd_write(descriptor_, 1);
  }
  arrived_.notify_all();
  if (isFirst) callWaker();
}

void MainQueue::callWaker() {
  const std::scoped_lock lock(wakerMutex_);
  if (waker_) waker_();
}

bool MainQueue::drain() {
  const bool hasRepeated = runRepeated();
  std::vector<Work> turn;
  {
    const std::scoped_lock lock(mutex_);
    turn.swap(pending_);
    eventfd_t arrivals = 0;
    if (descriptor_ >= 0 && !turn.empty()) ::eventfd_read(descriptor_, &arrivals);
  }
  for (const Work& work : turn) work();
  return hasRepeated || !turn.empty();
}

void MainQueue::drainAll(int turns) {
  while (turns-- > 0 && drain()) {
  }
}

bool MainQueue::wait(std::chrono::milliseconds longest) {
  const auto due = nextRepeat();
  std::unique_lock lock(mutex_);
  const auto until = std::min(due, Clock::now() + longest);
  return arrived_.wait_until(lock, until, [this] { return !pending_.empty(); }) ||
         Clock::now() >= due;
}

void MainQueue::setWaker(std::function<void()> waker) {
  const std::scoped_lock lock(wakerMutex_);
  waker_ = std::move(waker);
  bool isWaiting = false;
  {
    const std::scoped_lock pendingLock(mutex_);
    isWaiting = !pending_.empty();
  }
  if (isWaiting && waker_) waker_();
}

int MainQueue::descriptor() {
  const std::scoped_lock lock(mutex_);
  if (descriptor_ < 0) {
    descriptor_ = ::eventfd(pending_.empty() ? 0 : 1, EFD_CLOEXEC | EFD_NONBLOCK);
  }
  return descriptor_;
}

QEVSettings::Subscription MainQueue::repeat(std::chrono::milliseconds interval, Work work) {
  const std::uint64_t id = nextRepeated_++;
  repeated_[id] = {.interval = interval,
                   .due = Clock::now() + interval,
                   .work = std::make_shared<const Work>(std::move(work))};
  // The event loop may sleep less long now.
  callWaker();
  return QEVSettings::Subscription([this, id] { repeated_.erase(id); });
}

int MainQueue::pollTimeout() const {
  if (repeated_.empty()) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(nextRepeat() - Clock::now());
  return static_cast<int>(std::max(left, std::chrono::milliseconds(0)).count());
}

MainQueue::Clock::time_point MainQueue::nextRepeat() const {
  auto next = Clock::time_point::max();
  for (const auto& [id, repeated] : repeated_) next = std::min(next, repeated.due);
  return next;
}

bool MainQueue::runRepeated() {
  if (repeated_.empty()) return false;
  const auto now = Clock::now();
  // The work may end its own subscription, and others.
  std::vector<std::uint64_t> due;
  for (const auto& [id, repeated] : repeated_) {
    if (repeated.due <= now) due.push_back(id);
  }
  for (const std::uint64_t id : due) {
    const auto found = repeated_.find(id);
    if (found == repeated_.end()) continue;
    found->second.due = now + found->second.interval;
    const auto work = found->second.work;
    (*work)();
  }
  return !due.empty();
}

}  // namespace foundation
