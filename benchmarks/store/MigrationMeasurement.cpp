#include "OwnMeasurements.hpp"
#include "OwnProcess.hpp"
#include "QEVLog/QEVLog.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "foundation/JSON.hpp"
#include "foundation/UserDefaults.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>

using foundation::JSON;
using foundation::UserDefaults;
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;
using QEVSettings::QEVPreferencesMigration;

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kListBytes = 20'000;

double millisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

std::string listOf(std::size_t analyzer) {
  std::string list = "[";
  for (std::size_t i = 0; list.size() < kListBytes; ++i) {
    const std::string number = std::to_string(analyzer * 7 + i);
    list += list.size() > 1 ? "," : "";
    list += R"({"id":"6F9619FF-8B86-D011-B42D-00CF4FC964FF","protocolName":"Protocol )" + number +
            R"(","protocolPorts":[)" + std::to_string(1024 + i) +
            R"(,8080,49152],"sourceProtocol":1,"ethertype":null,"size":)" + number + "}";
  }
  return list + "]";
}

PreferenceValue bytes(std::string_view text) { return PreferenceValue::Bytes(text.begin(), text.end()); }

void fill(const std::filesystem::path& file, std::size_t analyzers) {
  PreferenceDictionary values;
  for (std::size_t i = 0; i < analyzers; ++i) {
    const std::string key = "com_velloquin_qev_" + std::to_string(i);
    values.emplace(key + "_color", bytes("some thirty bytes of a colour..."));
    values.emplace(key + "_protocols", bytes(listOf(i)));
    values.emplace(key + "_checksums", true);
  }
  static_cast<void>(UserDefaults::open(file)->applyAll(values));
}

// In bytes, by the name that the system gives it.
double memory(std::string_view name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == name && status >> word) return 1024 * std::stod(word);
  }
  return 0;
}

// The quickest of three readings of every list.
double perReading(std::size_t analyzers, bool (*read)(std::string_view)) {
  double best = std::numeric_limits<double>::max();
  for (int repeat = 0; repeat < 3; ++repeat) {
    double sum = 0;
    for (std::size_t i = 0; i < analyzers; ++i) {
      const std::string list = listOf(i);
      const auto start = Clock::now();
      if (!read(list)) std::abort();
      sum += millisecondsSince(start);
    }
    best = std::min(best, sum);
  }
  return best;
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
      "\n| migration of | JSON | returned | on disk | in memory | our parse | other library's parse | its check "
      "alone | peak above the image |\n|---|---:|---:|---:|---:|---:|---:|---:|---:|\n");
  for (const std::size_t analyzers : {std::size_t{100}, std::size_t{1'000}, std::size_t{10'000}}) {
    const auto file = folder / ("migration-" + std::to_string(analyzers) + ".sqlite");
    double megabytes = 0;
    for (std::size_t i = 0; i < analyzers; ++i) megabytes += static_cast<double>(listOf(i).size()) / 1e6;
    fill(file, analyzers);
    OwnProcess process("--migrate '" + file.string() + "'");
    const double returned = process.number();
    const double onDisk = process.number();
    const double above = process.number();

    const auto inMemory = UserDefaults::inMemory();
    for (std::size_t i = 0; i < analyzers; ++i) {
      inMemory->setObject(bytes(listOf(i)), "com_velloquin_qev_" + std::to_string(i) + "_protocols");
    }
    const auto start = Clock::now();
    QEVPreferencesMigration::migrateIfNeeded(*inMemory);
    const double alone = millisecondsSince(start);

    const std::size_t read = std::min(analyzers, std::size_t{1'000});
    const double share = megabytes * static_cast<double>(read) / static_cast<double>(analyzers);
    const double ours =
        perReading(read, [](std::string_view text) { return static_cast<bool>(JSON::parseBorrowed(text)); });
    const double other = perReading(
        read, [](std::string_view text) { return !nlohmann::json::parse(text, nullptr, false).is_discarded(); });
    const double check = perReading(read, [](std::string_view text) { return nlohmann::json::accept(text); });
    const auto rate = [](double amount, double milliseconds) { return 1000 * amount / milliseconds; };
    std::printf(
        "| %zu analyzers | %.0f MB | %.0f ms | %.0f ms, %.0f MB/s | %.0f MB/s | %.0f MB/s | %.0f MB/s | %.0f MB/s "
        "| %.1f MB, × %.0f the largest list |\n",
        analyzers, megabytes, returned, onDisk, rate(megabytes, onDisk), rate(megabytes, alone), rate(share, ours),
        rate(share, other), rate(share, check), above / 1e6, above / kListBytes);
    std::fflush(stdout);
    std::filesystem::remove(file);
    std::filesystem::remove(file.string() + ".good");
  }
}
