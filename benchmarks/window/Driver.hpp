// SPDX-License-Identifier: MIT
#pragma once

#include "Contender.hpp"

#include <QApplication>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

using Clock = std::chrono::steady_clock;

// The arguments of a contender's process: `window_benchmark_X ANALYZERS REPETITIONS STARTED`.
// STARTED is the monotonic clock in nanoseconds just before the process was started. With 0
// repetitions the process ends after the first painted frame.
struct Task {
  static Task of(int argc, char** argv);

  std::size_t analyzers;
  int repetitions;
  Clock::time_point started;
};

// Drives a contender with real mouse and key events, and prints a line for each action: "NAME WALL
// CPU", the microseconds until its effect was painted and the processor time until the window was
// idle. Lines with one number give the milliseconds of the start and the kilobytes of memory.
class Driver {
public:
  // `ready` is the time after the application and before any window was made.
  Driver(Task task, Clock::time_point ready) : task_(task), ready_(ready) {}

  // Shows the window and runs all actions.
  void run(Contender& contender);

private:
  using Watched = std::function<bool(const QWidget& painted, const QRect& rect)>;

  void measure(const char* name, const Watched& watched, const std::function<void()>& act) const;
  void waitFor(const Watched& watched) const;
  void reportMemory(const char* name) const;

  Task task_;
  Clock::time_point ready_;
};
