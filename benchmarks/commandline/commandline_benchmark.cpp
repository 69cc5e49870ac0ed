// SPDX-License-Identifier: MIT
// Measures every command about the preferences next to two programs that read one key of a settings
// store, in turns, and prints a table.
//
//     commandline_benchmark ZORVANTINE SAMPLE FOLDER [ROUNDS]
//
// Our store has the keys of the property list SAMPLE, the stores of the others have one key each.

#include "Measurement.hpp"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr const char* kSchema = "com.velloquin.benchmark";
// A key of the sample.
constexpr const char* kSampleKey = "com_velloquin_qev_bgp_colors_packets";
// The first measurements are of the two programs that ours are compared with.
constexpr std::size_t kPeers = 2;

void useFolder(const std::filesystem::path& folder) {
  ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
  ::setenv("GSETTINGS_SCHEMA_DIR", folder.c_str(), 1);
  ::setenv("GSETTINGS_BACKEND", "keyfile", 1);
  ::setenv("LC_ALL", "C.UTF-8", 1);
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
    ::unsetenv(name);
}

// The stores of the other programs.
void makePeerStores(const std::filesystem::path& folder) {
  std::ofstream(folder / "benchmark.gschema.xml")
      << "<schemalist><schema id='" << kSchema << "' path='/benchmark/'>"
      << "<key name='key' type='i'><default>1</default></key></schema></schemalist>\n";
  std::ofstream(folder / "benchmarkrc") << "[Group]\nkey=1\n";
  const std::string command = "glib-compile-schemas --strict '" + folder.string() + "'";
  if (std::system(command.c_str()) != 0) std::exit(EXIT_FAILURE);
}

// A command that stores something is preceded by one that stores something else, because storing
// what is there already writes nothing.
std::vector<Measurement> measurements(const std::string& program, const std::string& sample,
                                      const std::string& folder) {
  const auto prefs = [&](std::vector<std::string> words) {
    words.insert(words.begin(), {program, "prefs"});
    return words;
  };
  const auto setKey = [&](const char* value) {
    return prefs({"set", "benchmark key", "--int", value});
  };
  const std::vector<std::string> entry{"--file", "benchmarkrc", "--group", "Group", "--key", "key"};
  const auto entryWith = [&](std::vector<std::string> words, const char* value) {
    words.insert(words.end(), entry.begin(), entry.end());
    if (value != nullptr) words.emplace_back(value);
    return words;
  };
  return {
      {"gsettings get", {"gsettings", "get", kSchema, "key"}},
      {"kreadconfig5", entryWith({"kreadconfig5"}, nullptr)},
      {"gsettings set",
       {"gsettings", "set", kSchema, "key", "3"},
       {"gsettings", "set", kSchema, "key", "2"}},
      {"kwriteconfig5", entryWith({"kwriteconfig5"}, "3"), entryWith({"kwriteconfig5"}, "2")},
      {"an empty program", {"true"}},
      {"prefs get", prefs({"get", "benchmark key"}), setKey("1")},
      {"prefs list", prefs({"list"})},
      {"prefs list --format json", prefs({"list", "--format", "json"})},
      {"prefs export", prefs({"export", folder + "/exported.plist"})},
      {"prefs verify", prefs({"verify"})},
      {"prefs migrate, nothing to do", prefs({"migrate"})},
      {"prefs set", setKey("3"), setKey("2")},
      {"prefs delete", prefs({"delete", "benchmark key"}), setKey("1")},
      {"prefs import", prefs({"import", sample}), prefs({"delete", kSampleKey})},
  };
}

void print(const std::vector<Measurement>& all, int rounds) {
  const auto peers = all.begin() + kPeers;
  const auto fastest = std::min_element(all.begin(), peers, [](const auto& a, const auto& b) {
    return a.medianMilliseconds() < b.medianMilliseconds();
  });
  std::cout << "Medians of " << rounds << " runs. The ratio is to " << fastest->name() << ".\n\n"
            << "| | time (ms) | ratio | processor time (ms) | peak memory (MB) |\n"
            << "|---|---:|---:|---:|---:|\n"
            << std::fixed << std::setprecision(2);
  for (const Measurement& each : all) {
    std::cout << "| " << each.name() << " | " << each.medianMilliseconds() << " | "
              << each.medianMilliseconds() / fastest->medianMilliseconds() << " | "
              << each.medianProcessorMilliseconds() << " | "
              << static_cast<double>(each.peakMemory()) / 1024 << " |\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::cerr << "usage: commandline_benchmark ZORVANTINE SAMPLE FOLDER [ROUNDS]\n";
    return EXIT_FAILURE;
  }
  const int rounds = argc > 4 ? std::max(std::atoi(argv[4]), 1) : 200;
  useFolder(argv[3]);
  makePeerStores(argv[3]);
  auto all = measurements(argv[1], argv[2], argv[3]);
  // Every command finds this store.
  Measurement("", {argv[1], "prefs", "import", argv[2]}).run();
  for (int round = 0; round < rounds; ++round) {
    for (Measurement& each : all) each.run();
  }
  print(all, rounds);
}
