// SPDX-License-Identifier: MIT
#include "OwnMeasurements.hpp"
#include "OwnProcess.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

using foundation::MainQueue;
using foundation::UserDefaults;

namespace {

constexpr std::size_t kWrites = 50;

// All processes read the same clock.
std::int64_t now() { return std::chrono::steady_clock::now().time_since_epoch().count(); }

// Prints 0 when it is ready, then the age in microseconds that each write had when its observer was
// called, in rising order.
void hear(const std::filesystem::path& file) {
  const auto store = UserDefaults::open(file);
  std::vector<double> ages;
  const auto token = store->observeAll([&](std::string_view key) {
    ages.push_back(static_cast<double>(now() - store->integerForKey(key)) / 1000);
  });
  std::printf("0\n");
  std::fflush(stdout);
  while (ages.size() < kWrites) {
    MainQueue::mainQueue().wait(std::chrono::seconds(1));
    MainQueue::mainQueue().drain();
  }
  std::sort(ages.begin(), ages.end());
  for (const double age : ages) std::printf("%f\n", age);
}

}  // namespace

void measureHearing(const std::filesystem::path& folder) {
  const auto file = folder / "hearing.sqlite";
  const auto store = UserDefaults::open(file);
  OwnProcess other("--hear '" + file.string() + "'");
  other.number();
  for (std::size_t i = 0; i < kWrites; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    store->setInteger(now(), "key " + std::to_string(i));
  }
  std::vector<double> ages;
  for (std::size_t i = 0; i < kWrites; ++i) ages.push_back(other.number());
  std::printf("\n| another process hears of a write | after |\n|---|---:|\n");
  std::printf("| in the middle | %.1f ms |\n| at worst, of %zu | %.1f ms |\n",
              ages[kWrites / 2] / 1000, kWrites, ages.back() / 1000);
}

void measureMigrationInThisProcess(const std::filesystem::path& file);

bool runPartOfMeasurement(int argc, char** argv) {
  if (argc != 3) return false;
  const std::string_view part = argv[1];
  if (part == "--hear") hear(argv[2]);
  if (part == "--migrate") measureMigrationInThisProcess(argv[2]);
  return part == "--hear" || part == "--migrate";
}
