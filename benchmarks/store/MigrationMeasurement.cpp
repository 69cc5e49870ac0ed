// SPDX-License-Identifier: MIT
#include "OwnMeasurements.hpp"
#include "OwnProcess.hpp"
#include "QEVLog/QEVLog.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "foundation/JSON.hpp"
#include "foundation/UserDefaults.hpp"

#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

using foundation::JSON;
using foundation::UserDefaults;
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;
using QEVSettings::QEVPreferencesMigration;

namespace {

using Clock = std::chrono::steady_clock;

struct Size {
  std::size_t analyzers;
  std::size_t listBytes;
};

double millisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Work that does not wait is measured as processor time of this thread, which excludes other
// processes.
double processorMilliseconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return 1e3 * static_cast<double>(now.tv_sec) + 1e-6 * static_cast<double>(now.tv_nsec);
}

std::string listOf(std::size_t analyzer, Size size) {
  std::string list = "[";
  for (std::size_t i = 0; list.size() < size.listBytes; ++i) {
    const std::string number = std::to_string(analyzer * 7 + i);
    list += list.size() > 1 ? "," : "";
    list.append(R"({"id":"6F9619FF-8B86-D011-B42D-00CF4FC964FF","protocolName":"Protocol )")
        .append(number)
        .append(R"(","protocolPorts":[)")
        .append(std::to_string(1024 + i))
        .append(R"(,8080,49152],"sourceProtocol":1,"ethertype":null,"size":)")
        .append(number)
        .append("}");
  }
  return list + "]";
}

PreferenceValue bytes(std::string_view text) {
  return PreferenceValue::Bytes(text.begin(), text.end());
}

void fill(const std::filesystem::path& file, Size size) {
  PreferenceDictionary values;
  for (std::size_t i = 0; i < size.analyzers; ++i) {
    const std::string key = "com_velloquin_qev_" + std::to_string(i);
    values.emplace(key + "_color", bytes("some thirty bytes of a colour..."));
    values.emplace(key + "_protocols", bytes(listOf(i, size)));
    values.emplace(key + "_checksums", true);
  }
  static_cast<void>(UserDefaults::open(file)->applyAll(values));
}

// A size in bytes, by the system's name for it.
double memory(std::string_view name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == name && status >> word) return 1024 * std::stod(word);
  }
  return 0;
}

// The shortest of three times in which all lists are read.
double perReading(std::size_t analyzers, Size size, bool (*read)(std::string_view)) {
  double best = std::numeric_limits<double>::max();
  for (int repeat = 0; repeat < 3; ++repeat) {
    double sum = 0;
    for (std::size_t i = 0; i < analyzers; ++i) {
      const std::string list = listOf(i, size);
      const double start = processorMilliseconds();
      if (!read(list)) std::abort();
      sum += processorMilliseconds() - start;
    }
    best = std::min(best, sum);
  }
  return best;
}

// The time in which the disk writes the same bytes as one file.
double perPlainFile(const std::filesystem::path& file, Size size) {
  std::vector<std::string> lists;
  for (std::size_t i = 0; i < size.analyzers; ++i) lists.push_back(listOf(i, size));
  const auto start = Clock::now();
  const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  for (const std::string& list : lists) {
    if (::write(descriptor, list.data(), list.size()) != static_cast<ssize_t>(list.size()))
      std::abort();
  }
  if (::fdatasync(descriptor) != 0) std::abort();
  ::close(descriptor);
  const double milliseconds = millisecondsSince(start);
  std::filesystem::remove(file);
  return milliseconds;
}

}  // namespace

void measureMigrationInThisProcess(const std::filesystem::path& file) {
  QEVLog::setLogSink([](const QEVLog::LogEntry&) {});
  const auto store = UserDefaults::open(file);
  const double image = memory("VmRSS:");
  const auto start = Clock::now();
  QEVPreferencesMigration::migrateIfNeeded(*store);
  const double migrated = millisecondsSince(start);
  if (!store->synchronize()) std::abort();
  std::printf("%f %f %f\n", migrated, millisecondsSince(start), memory("VmHWM:") - image);
}

void measureMigration(const std::filesystem::path& folder) {
  QEVLog::setLogSink([](const QEVLog::LogEntry&) {});
  std::printf(
      "\n| migration of | JSON | returned | on disk | a plain file | in memory | our parse | other "
      "library's parse | "
      "its "
      "check alone | peak above the image |\n|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n");
  constexpr std::size_t usual = 20'000;
  for (const Size size :
       {Size{100, usual}, Size{1'000, usual}, Size{10'000, usual}, Size{1, 100'000'000}}) {
    const auto file = folder / ("migration-" + std::to_string(size.analyzers) + ".sqlite");
    double megabytes = 0;
    for (std::size_t i = 0; i < size.analyzers; ++i)
      megabytes += static_cast<double>(listOf(i, size).size()) / 1e6;
    const double plain = perPlainFile(folder / "plain", size);
    fill(file, size);
    OwnProcess process("--migrate '" + file.string() + "'");
    const double returned = process.number();
    const double onDisk = process.number();
    const double above = process.number();

    const auto inMemory = UserDefaults::inMemory();
    for (std::size_t i = 0; i < size.analyzers; ++i) {
      inMemory->setObject(bytes(listOf(i, size)),
                          "com_velloquin_qev_" + std::to_string(i) + "_protocols");
    }
    const double start = processorMilliseconds();
    QEVPreferencesMigration::migrateIfNeeded(*inMemory);
    const double alone = processorMilliseconds() - start;

    const std::size_t read = std::min(size.analyzers, std::size_t{1'000});
    const double share =
        megabytes * static_cast<double>(read) / static_cast<double>(size.analyzers);
    const double ours = perReading(read, size, [](std::string_view text) {
      return static_cast<bool>(JSON::parseBorrowed(text));
    });
    const double other = perReading(read, size, [](std::string_view text) {
      return !nlohmann::json::parse(text, nullptr, false).is_discarded();
    });
    const double check =
        perReading(read, size, [](std::string_view text) { return nlohmann::json::accept(text); });
    const auto rate = [](double amount, double milliseconds) {
      return 1000 * amount / milliseconds;
    };
    std::printf(
        "| %zu analyzer(s) | %.0f MB | %.0f ms | %.0f ms, %.0f MB/s | %.0f MB/s | %.0f MB/s | %.0f "
        "MB/s | %.0f MB/s | "
        "%.0f MB/s | %.1f MB, × %.1f a list |\n",
        size.analyzers, megabytes, returned, onDisk, rate(megabytes, onDisk),
        rate(megabytes, plain), rate(megabytes, alone), rate(share, ours), rate(share, other),
        rate(share, check), above / 1e6, above / static_cast<double>(size.listBytes));
    std::fflush(stdout);
    std::filesystem::remove(file);
    std::filesystem::remove(file.string() + ".good");
  }
}
