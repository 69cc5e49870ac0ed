#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <cstddef>
#include <optional>

namespace zorvantine {

// Registers the host's analyzers, or so many made-up ones instead, with the application's registry.
// Once, at launch; the store outlives the process's last use of an analyzer.
void loadAnalyzers(std::optional<std::size_t> syntheticCount, QEVSettings::PreferencesStore& store);

}  // namespace zorvantine
