// SPDX-License-Identifier: MIT
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr const char* kKey = "com_velloquin_qev_fuzz_protocols";

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

// Any bytes under the key of a list are migrated and read without harm. A list that was written is
// read as the same list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto defaults = foundation::UserDefaults::inMemory();
  defaults->setObject(QEVSettings::PreferenceValue::Bytes(data, data + size), kKey);
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(*defaults);

  const QEVModels::AnalyzerPortsStore store(kKey, *defaults);
  const auto list = store.decode({});
  store.encode(list);
  const auto written = defaults->objectForKey(kKey);
  const auto again = store.decode({});
  require(again.size() == list.size());
  store.encode(again);
  require(defaults->objectForKey(kKey) == written);
  return 0;
}
