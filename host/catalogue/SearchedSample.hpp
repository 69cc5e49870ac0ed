// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingsIndex.hpp"

#include <memory>

namespace zorvantine {

// The settings of the host and its analyzers, from the host's tables: no analyzer is registered for
// it.
std::shared_ptr<const QEVSettings::SearchedSettings> searchedSample();

}  // namespace zorvantine
