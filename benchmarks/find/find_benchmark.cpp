// SPDX-License-Identifier: MIT
// How long the find field takes from a key to its results: in the whole settings window, without a
// screen, among 31 and 10,000 analyzers. Times are those of the processor, which other programs
// affect less.

#include "QEVModels/QEVPlugInsController.hpp"
#include "SettingsHost.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int kRuns = 20;
constexpr std::string_view kTyped = "analyzer checksums";

// One typed query, key by key.
struct Typing {
  // From the first key, with which the index begins, to the first results.
  double firstKey = 0;
  // To all results of the first key.
  double complete = 0;
  // The slowest and the median of the other keys.
  double slowest = 0;
  double median = 0;
};

// The processor time of this process, in milliseconds.
double now() {
  timespec time{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

const viewkit::TextFieldControl& field(const headless::Window& window) {
  const auto& content = window.find(viewkit::Role::comboBox).content();
  return std::get<viewkit::TextFieldControl>(*content.control());
}

// From the key until the views show its results.
double press(headless::Window& window, const std::string& text) {
  const auto change = field(window).change;
  const double begin = now();
  change(text);
  window.host().update();
  return now() - begin;
}

Typing typed(zorvantine::SettingsHost& host) {
  headless::Window window(host.settingsView(zorvantine::Tab::general), host.environment());
  Typing typing;
  std::vector<double> later;
  const double begin = now();
  for (std::size_t length = 1; length <= kTyped.size(); ++length) {
    const double time = press(window, std::string(kTyped.substr(0, length)));
    if (length > 1) {
      later.push_back(time);
      continue;
    }
    typing.firstKey = time;
    window.settle();
    typing.complete = now() - begin;
  }
  std::ranges::sort(later);
  typing.slowest = later.back();
  typing.median = later[later.size() / 2];
  return typing;
}

double worst(const std::vector<Typing>& runs, double Typing::*part) {
  return (*std::ranges::max_element(runs, {}, part)).*part;
}

double middle(std::vector<Typing> runs, double Typing::*part) {
  std::ranges::sort(runs, {}, part);
  return runs[runs.size() / 2].*part;
}

void unloadAnalyzers() {
  auto& registry = QEVModels::QEVPlugInsController::sharedManager();
  const auto loaded = registry.snapshot();
  for (const auto& analyzer : *loaded) registry.unregisterPlugIn(analyzer.id);
}

void measure(std::optional<std::size_t> analyzers, const char* name) {
  const auto store = foundation::UserDefaults::inMemory();
  unloadAnalyzers();
  zorvantine::WindowOptions options;
  options.syntheticAnalyzers = analyzers;
  zorvantine::SettingsHost host(options, *store);
  std::vector<Typing> runs;
  for (int run = 0; run < kRuns; ++run) runs.push_back(typed(host));
  std::printf("%9s  %8.2f %8.2f  %8.2f  %8.2f %8.2f\n", name, middle(runs, &Typing::firstKey),
              worst(runs, &Typing::firstKey), middle(runs, &Typing::complete),
              middle(runs, &Typing::median), worst(runs, &Typing::slowest));
}

}  // namespace

int main() {
  std::printf("Milliseconds from a key to its results on the page, %d runs of “%s”\n", kRuns,
              std::string(kTyped).c_str());
  std::printf("analyzers  first key, worst   complete  later key, worst\n");
  measure(std::nullopt, "31");
  measure(10'000, "10000");
  return 0;
}
