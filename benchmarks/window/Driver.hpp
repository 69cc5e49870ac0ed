#pragma once

#include "Contender.hpp"

#include <QApplication>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

using Clock = std::chrono::steady_clock;

// What a contender's process was asked to do: `window_benchmark_X ANALYZERS REPETITIONS STARTED`.
// STARTED is the reading of the monotonic clock, in nanoseconds, just before the process was
// started. No repetitions: the process ends with the first painted frame.
struct Task {
  static Task of(int argc, char** argv);

  std::size_t analyzers;
  int repetitions;
  Clock::time_point started;
};

// Does to a contender what a person does, with real events, and prints a line for each time it was
// done: "NAME WALL CPU", the microseconds until it was painted and those of the processor until all
// was done. Lines of one number are the milliseconds of the start and the kilobytes of memory.
class Driver {
public:
  // `ready` is when the application had been made, before any window.
  Driver(Task task, Clock::time_point ready) : task_(task), ready_(ready) {}

  // Shows the window and does it all.
  void run(Contender& contender);

private:
  using Watched = std::function<bool(const QWidget& painted, const QRect& rect)>;

  void measure(const char* name, const Watched& watched, const std::function<void()>& act) const;
  void waitFor(const Watched& watched) const;
  void reportMemory(const char* name) const;

  Task task_;
  Clock::time_point ready_;
};
