// SPDX-License-Identifier: MIT
// How long the find field takes from a key to its results: in the whole settings window, without a
// screen, among 31 and 10,000 analyzers. Times are those of the processor, which other programs
// affect less.

#include "QEVSettings/QEVSettingsView.hpp"
#include "QEVSettings/StoredAppearance.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"
#include "sparkle/UpdaterConfiguration.hpp"
#include "window/Analyzers.hpp"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
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

struct NoInterfaces final : QEVCoreComponents::NetworkInterfaces {
  std::vector<QEVCoreComponents::NetworkInterface> all() const override { return {}; }
};

// What every window shows.
struct Models {
  Models() {
    sparkle::UpdaterConfiguration configuration;
    configuration.store = store.get();
    sparkle::UpdaterConfiguration::setStandard(configuration);
    updater = std::make_shared<QEVSettings::UpdaterViewModel>();
  }

  viewkit::View settings() const {
    return QEVSettings::QEVSettingsView(updater,
                                        std::make_shared<QEVSettings::StoredAppearance>(*store),
                                        std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(
                                            *store, std::make_shared<NoInterfaces>()),
                                        QEVSettings::QEVSettingsView::Tabs::general, std::nullopt);
  }

  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater;
};

Typing typed(const Models& models) {
  headless::Window window(models.settings(), {.defaultStore = *models.store});
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

void measure(const Models& models, std::size_t analyzers) {
  registerAnalyzers(analyzers);
  std::vector<Typing> runs;
  std::generate_n(std::back_inserter(runs), kRuns, [&] { return typed(models); });
  std::printf("%9zu  %9.2f %9.2f  %9.2f  %9.2f %9.2f\n", analyzers, middle(runs, &Typing::firstKey),
              worst(runs, &Typing::firstKey), middle(runs, &Typing::complete),
              middle(runs, &Typing::median), worst(runs, &Typing::slowest));
}

}  // namespace

int main() {
  const Models models;
  std::printf("Milliseconds from a key to its results in the window, %d runs of “%s”\n", kRuns,
              std::string(kTyped).c_str());
  std::printf("analyzers  first key     worst   complete  later key     worst\n");
  for (const std::size_t analyzers : {31U, 10'000U}) measure(models, analyzers);
  return 0;
}
