// SPDX-License-Identifier: MIT
#include "Report.hpp"

#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>

namespace {

using Microseconds = std::chrono::duration<double, std::micro>;

void print(const char* name, Microseconds elapsed, double processor) {
  std::printf("%s %.1f %.1f\n", name, elapsed.count(), processor);
}

}  // namespace

double processorMicroseconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

void Stopwatch::report(const char* name) const {
  print(name, painted_ - start_, processorMicroseconds() - processor_);
}

void reportFirstFrame(const Task& task, const Start& start) {
  const auto painted = Clock::now();
  const double processor = processorMicroseconds();
  print("first-frame", painted - task.started, processor);
  print("own-part", painted - start.ready, processor - start.readyProcessor);
  reportMemory("memory-first-frame");
}

void reportMemory(const char* name) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    if (word != "VmHWM:") continue;
    status >> word;
    std::printf("%s %s\n", name, word.c_str());
    return;
  }
}
