// SPDX-License-Identifier: MIT
#include "Task.hpp"

#include <cstdio>
#include <cstdlib>
#include <string>

Task Task::of(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: %s ANALYZERS REPETITIONS STARTED\n", argv[0]);
    std::exit(2);
  }
  return {.analyzers = std::stoul(argv[1]),
          .repetitions = std::stoi(argv[2]),
          .started = Clock::time_point(std::chrono::nanoseconds(std::stoll(argv[3])))};
}
