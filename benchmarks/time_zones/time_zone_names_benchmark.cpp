// SPDX-License-Identifier: MIT
#include "QEVSettings/general/QEVTimeZones.hpp"
#include "foundation/Bundle.hpp"

#include <benchmark/benchmark.h>

// Measures what opening the time-zone menu does before anything is drawn: it reads the host's file,
// parses it and merges it with the machine's identifiers.
static void namesOfTimeZones(benchmark::State& state) {
  foundation::Bundle::setMainResourceFolder(QEV_SOURCE_FOLDER "/host/resources");
  foundation::Bundle::setPreferredLanguages({"de"});
  for ([[maybe_unused]] const auto turn : state) {
    benchmark::DoNotOptimize(QEVSettings::QEVTimeZones::localizedTimeZoneNames());
  }
}
BENCHMARK(namesOfTimeZones)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
