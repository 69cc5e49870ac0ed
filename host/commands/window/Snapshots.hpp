// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "commandline/ExitCode.hpp"
#include "commands/Commands.hpp"

#include <optional>

namespace zorvantine {

// Draws the settings window into the pictures that the command asks for, without a display. Returns
// why it failed, or nothing. Must be the process's only use of Qt.
std::optional<Failure> takeSnapshots(const SnapshotCommand& command,
                                     QEVSettings::PreferencesStore& store);

}  // namespace zorvantine
