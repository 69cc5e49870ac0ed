// SPDX-License-Identifier: MIT
#include "OwnMeasurements.hpp"
#include "foundation/UserDefaults.hpp"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>

using foundation::UserDefaults;

namespace {

constexpr int kWrites = 1'000;
constexpr int kRepeats = 7;

double milliseconds(clockid_t clock) {
  timespec now{};
  ::clock_gettime(clock, &now);
  return 1e3 * static_cast<double>(now.tv_sec) + 1e-6 * static_cast<double>(now.tv_nsec);
}

}  // namespace

void measureBurst(const std::filesystem::path& folder) {
  const auto store = UserDefaults::open(folder / "burst.sqlite");
  for (int i = 0; i < kWrites; ++i) store->setInteger(-1, "key " + std::to_string(i));
  double elapsed = 1e9;
  double processor = 1e9;
  double durable = 1e9;
  for (int repeat = 0; repeat < kRepeats; ++repeat) {
    const double start = milliseconds(CLOCK_MONOTONIC);
    const double startOfThread = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    for (int i = 0; i < kWrites; ++i) store->setInteger(repeat, "key " + std::to_string(i));
    elapsed = std::min(elapsed, milliseconds(CLOCK_MONOTONIC) - start);
    processor = std::min(processor, milliseconds(CLOCK_THREAD_CPUTIME_ID) - startOfThread);
    if (!store->synchronize()) return;
    durable = std::min(durable, milliseconds(CLOCK_MONOTONIC) - start);
  }
  std::printf("\n| burst of 1,000 writes | per 100 |\n|---|---:|\n");
  std::printf("| until the last has returned | %.2f ms |\n", elapsed / 10);
  std::printf("| of which the main thread's processor time | %.2f ms |\n", processor / 10);
  std::printf("| until all survive a power cut | %.2f ms |\n", durable / 10);
}
