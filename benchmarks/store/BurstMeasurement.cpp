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

// The shortest of several times of a burst, in milliseconds.
struct Burst {
  double elapsed = 1e9;
  double processor = 1e9;
  double durable = 1e9;
};

Burst burst(const std::filesystem::path& file, bool keepsHistory) {
  const auto store = UserDefaults::open(file);
  store->setHistoryRules({.isKept = [keepsHistory] { return keepsHistory; }});
  for (int i = 0; i < kWrites; ++i) store->setInteger(-1, "key " + std::to_string(i));
  Burst best;
  for (int repeat = 0; repeat < kRepeats; ++repeat) {
    const double start = milliseconds(CLOCK_MONOTONIC);
    const double startOfThread = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    for (int i = 0; i < kWrites; ++i) store->setInteger(repeat, "key " + std::to_string(i));
    best.elapsed = std::min(best.elapsed, milliseconds(CLOCK_MONOTONIC) - start);
    best.processor =
        std::min(best.processor, milliseconds(CLOCK_THREAD_CPUTIME_ID) - startOfThread);
    if (!store->synchronize()) return best;
    best.durable = std::min(best.durable, milliseconds(CLOCK_MONOTONIC) - start);
  }
  return best;
}

}  // namespace

void measureBurst(const std::filesystem::path& folder) {
  const Burst with = burst(folder / "burst.sqlite", true);
  const Burst without = burst(folder / "burst-without-history.sqlite", false);
  const auto print = [](const char* what, double one, double other) {
    std::printf("| %s | %.2f ms | %.2f ms |\n", what, one / 10, other / 10);
  };
  std::printf("\n| burst of 1,000 writes | per 100 | without history |\n|---|---:|---:|\n");
  print("until the last has returned", with.elapsed, without.elapsed);
  print("of which the main thread's processor time", with.processor, without.processor);
  print("until all survive a power cut", with.durable, without.durable);
}
