// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

using Clock = std::chrono::steady_clock;

// The size of every contender's window, in points.
inline constexpr int kWindowWidth = 760;
inline constexpr int kWindowHeight = 552;

// The arguments of a contender's process: `window_benchmark_X ANALYZERS REPETITIONS STARTED`.
// STARTED is the monotonic clock in nanoseconds just before the process was started. With 0
// repetitions the process ends after the first painted frame.
struct Task {
  // Ends the process with a line of help when the arguments are not these three.
  static Task of(int argc, char** argv);

  std::size_t analyzers = 0;
  int repetitions = 0;
  Clock::time_point started;
};
