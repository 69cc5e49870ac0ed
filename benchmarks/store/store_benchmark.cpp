// SPDX-License-Identifier: MIT
// Prints the cost of our store's operations next to that of the alternatives, measured in the same
// run on the same disk, and then the measurements of our store alone.
//
//     store_benchmark [FOLDER]
//
// The stores are made in FOLDER, or in a new folder in the working directory.

#include "Contender.hpp"
#include "OwnMeasurements.hpp"
#include "OwnProcess.hpp"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRepeats = 200;
constexpr std::chrono::milliseconds kRepeatingTime{1500};
// Shorter than a time slice of the scheduler, so that some measurements are not interrupted.
constexpr std::chrono::milliseconds kReadingTime{1};
constexpr std::size_t kReadsPerLook = 16;
constexpr std::chrono::seconds kWritingTime{2};
constexpr int kMaximumWrites = 100;

double nanosecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

// The shortest of many times, because other processes only add to a time.
double quickest(const std::function<double()>& measure) {
  const auto begin = Clock::now();
  double best = measure();
  for (int i = 1; i < kRepeats && Clock::now() - begin < kRepeatingTime; ++i)
    best = std::min(best, measure());
  return best;
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::vector<std::size_t> keysOfKind(KeyKind kind, std::size_t keyCount) {
  std::vector<std::size_t> keys;
  for (std::size_t i = 0; i < keyCount; ++i) {
    if (kindOf(i) == kind) keys.push_back(i);
  }
  std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
  return keys;
}

std::uint64_t sink = 0;

template <class Read>
double perRead(const std::vector<std::size_t>& keys, Read read) {
  std::size_t next = 0;
  return quickest([&] {
    const auto start = Clock::now();
    std::size_t reads = 0;
    while (Clock::now() - start < kReadingTime) {
      for (std::size_t i = 0; i < kReadsPerLook; ++i) {
        sink += read(keys[next]);
        if (++next == keys.size()) next = 0;
      }
      reads += kReadsPerLook;
    }
    return nanosecondsSince(start) / static_cast<double>(reads);
  });
}

// The stores write in turns, because the other load of the disk changes from second to second.
std::vector<double> perWrite(const std::vector<std::unique_ptr<Contender>>& stores,
                             const std::vector<const ContenderKind*>& kinds,
                             const std::vector<std::size_t>& keys) {
  std::vector<std::vector<double>> each(stores.size());
  std::vector<double> spent(stores.size());
  for (std::size_t i = 0; i < kMaximumWrites; ++i) {
    for (std::size_t store = 0; store < stores.size(); ++store) {
      if (!kinds[store]->persists || spent[store] > std::chrono::nanoseconds(kWritingTime).count())
        continue;
      const auto start = Clock::now();
      stores[store]->writeBoolean(keys[i % keys.size()], i / keys.size() % 2 == 1);
      each[store].push_back(nanosecondsSince(start));
      spent[store] += each[store].back();
    }
  }
  std::vector<double> medians;
  for (std::size_t store = 0; store < stores.size(); ++store) {
    medians.push_back(each[store].empty() ? -1 : median(std::move(each[store])));
  }
  return medians;
}

double openAndRead(const ContenderKind& kind, const std::filesystem::path& folder,
                   std::size_t keyCount) {
  const auto start = Clock::now();
  const auto store = kind.open(folder, keyCount);
  sink += store->readBoolean(0) ? 1U : 0U;
  return nanosecondsSince(start);
}

// Opens in a new process, because several stores keep what they have read for the next opening.
double openInNewProcess(std::size_t kind, const std::filesystem::path& folder,
                        std::size_t keyCount) {
  OwnProcess process("--open " + std::to_string(kind) + " '" + folder.string() + "' " +
                     std::to_string(keyCount));
  const double nanoseconds = process.number();
  if (nanoseconds < 0) std::abort();
  return nanoseconds;
}

struct Row {
  const char* what;
  std::size_t keyCount;
  // In the order of the contenders. Negative where there is nothing to measure.
  std::vector<double> nanoseconds;
};

void printTable(const std::vector<Row>& rows, const std::vector<const ContenderKind*>& kinds) {
  std::printf("| operation | keys | %s |", std::string(kinds[0]->name).c_str());
  for (std::size_t i = 1; i < kinds.size(); ++i)
    std::printf(" %s |", std::string(kinds[i]->name).c_str());
  std::printf("\n|---|---:|---:|");
  for (std::size_t i = 1; i < kinds.size(); ++i) std::printf("---:|");
  std::printf("\n");
  for (const Row& row : rows) {
    const double ours = row.nanoseconds[0];
    if (ours < 10'000) {
      std::printf("| %s | %zu | %.1f ns |", row.what, row.keyCount, ours);
    } else {
      std::printf("| %s | %zu | %.0f µs |", row.what, row.keyCount, ours / 1000);
    }
    for (std::size_t i = 1; i < kinds.size(); ++i) {
      if (row.nanoseconds[i] < 0) {
        std::printf(" – |");
      } else {
        std::printf(" × %.2f |", row.nanoseconds[i] / ours);
      }
    }
    std::printf("\n");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<const ContenderKind*> kinds{
      &userDefaultsContender(), &plainUserDefaultsContender(),
      &qSettingsContender(),    &gSettingsContender(),
      &sqliteContender(),       &mapContender()};
  if (argc == 5 && std::string_view(argv[1]) == "--open") {
    std::printf("%f\n", openAndRead(*kinds[std::stoul(argv[2])], argv[3], std::stoul(argv[4])));
    return 0;
  }
  if (runPartOfMeasurement(argc, argv)) return 0;
  const auto root = std::filesystem::absolute(argc > 1 ? argv[1] : "store-benchmark");
  std::filesystem::remove_all(root);

  std::vector<Row> rows;
  for (const std::size_t keyCount : {std::size_t{10}, std::size_t{1'000}, std::size_t{10'000}}) {
    Row booleans{"read a Boolean", keyCount, {}};
    Row strings{"read a string", keyCount, {}};
    Row bytes{"read 4 KiB of bytes", keyCount, {}};
    Row writes{"write until durable", keyCount, {}};
    Row opens{"open and first read", keyCount, {}};
    const auto booleanKeys = keysOfKind(KeyKind::boolean, keyCount);
    std::vector<std::unique_ptr<Contender>> stores;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      const ContenderKind& kind = *kinds[i];
      const auto folder = root / std::to_string(keyCount) / kind.name;
      std::filesystem::create_directories(folder);
      kind.fill(folder, keyCount);
      opens.nanoseconds.push_back(
          kind.persists ? quickest([&] { return openInNewProcess(i, folder, keyCount); }) : -1);
      const auto& store = stores.emplace_back(kind.open(folder, keyCount));
      booleans.nanoseconds.push_back(
          perRead(booleanKeys, [&](std::size_t key) { return store->readBoolean(key) ? 1U : 0U; }));
      strings.nanoseconds.push_back(
          perRead(keysOfKind(KeyKind::string, keyCount),
                  [&](std::size_t key) { return store->readString(key); }));
      bytes.nanoseconds.push_back(perRead(keysOfKind(KeyKind::bytes, keyCount),
                                          [&](std::size_t key) { return store->readBytes(key); }));
    }
    writes.nanoseconds = perWrite(stores, kinds, booleanKeys);
    rows.insert(rows.end(), {booleans, strings, bytes, writes, opens});
  }
  printTable(rows, kinds);
  measureBurst(root);
  measureHearing(root);
  measureMigration(root);
  std::filesystem::remove_all(root);
  return sink == 0 ? 1 : 0;
}
