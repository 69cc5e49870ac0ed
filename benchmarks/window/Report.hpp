// SPDX-License-Identifier: MIT
#pragma once

#include "Task.hpp"

// What a contender's process prints. A line "NAME WALL CPU" has microseconds, a line "NAME NUMBER"
// kilobytes.

// The processor time of the process so far, in microseconds: all threads, and the loading of its
// libraries.
double processorMicroseconds();

// Measures one action, from the making of the object to the painted frame.
class Stopwatch {
public:
  // The effect of the action is painted. The wall time ends here.
  void stop() { painted_ = Clock::now(); }
  // Prints the line. The processor time ends here, when the window is idle.
  void report(const char* name) const;

private:
  double processor_ = processorMicroseconds();
  Clock::time_point start_ = Clock::now();
  Clock::time_point painted_ = start_;
};

// The start of a process: `ready` is the time after the application and before any window was made.
struct Start {
  Clock::time_point ready;
  double readyProcessor = processorMicroseconds();
};

// Prints the lines of the start, and the peak of the memory. Called when the first frame has been
// painted.
void reportFirstFrame(const Task& task, const Start& start);

// Prints the peak of the memory so far.
void reportMemory(const char* name);
