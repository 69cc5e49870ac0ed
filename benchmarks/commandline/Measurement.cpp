// SPDX-License-Identifier: MIT
#include "Measurement.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <utility>

namespace {

struct Run {
  double wall = 0;
  double processor = 0;
  long peakMemory = 0;
};

double milliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

Run runOnce(std::vector<std::string>& words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

  const auto start = std::chrono::steady_clock::now();
  pid_t process = 0;
  int status = posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  rusage usage{};
  if (status == 0) ::wait4(process, &status, 0, &usage);
  const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
  posix_spawn_file_actions_destroy(&actions);
  if (status != 0) {
    std::cerr << "commandline_benchmark: " << words[0] << " failed; install what scripts/setup"
              << " --bench names\n";
    std::exit(EXIT_FAILURE);
  }
  return {.wall = wall.count(),
          .processor = milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
          .peakMemory = usage.ru_maxrss};
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

}  // namespace

Measurement::Measurement(std::string name, std::vector<std::string> words,
                         std::vector<std::string> before)
    : name_(std::move(name)), words_(std::move(words)), before_(std::move(before)) {}

void Measurement::run() {
  if (!before_.empty()) runOnce(before_);
  const Run done = runOnce(words_);
  wall_.push_back(done.wall);
  processor_.push_back(done.processor);
  peakMemory_ = std::max(peakMemory_, done.peakMemory);
}

double Measurement::medianMilliseconds() const { return median(wall_); }

double Measurement::medianProcessorMilliseconds() const { return median(processor_); }
