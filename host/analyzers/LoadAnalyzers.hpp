// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <cstddef>
#include <optional>

namespace zorvantine {

// Registers the host's analyzers, or the given number of synthetic ones, with the application's
// registry. Called once, at launch. The store outlives the last use of an analyzer.
void loadAnalyzers(std::optional<std::size_t> syntheticCount, QEVSettings::PreferencesStore& store);

}  // namespace zorvantine
