#include "QEVSettings/general/QEVTimeZones.hpp"
#include "foundation/Bundle.hpp"

#include <benchmark/benchmark.h>

// What opening the time-zone menu costs before anything is drawn: the host's file is read, parsed
// and merged with the machine's identifiers each time.
static void namesOfTimeZones(benchmark::State& state) {
  foundation::Bundle::setMainResourceFolder(QEV_SOURCE_FOLDER "/host/resources");
  foundation::Bundle::setPreferredLanguages({"de"});
  for ([[maybe_unused]] const auto turn : state) {
    benchmark::DoNotOptimize(QEVSettings::QEVTimeZones::localizedTimeZoneNames());
  }
}
BENCHMARK(namesOfTimeZones)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
