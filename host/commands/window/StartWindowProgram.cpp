// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "process/StartProgram.hpp"

// The commands of the window in a program that does not link Qt. Each starts the program that does,
// which reads the same command line and opens the store itself.

namespace zorvantine {

namespace {

constexpr const char* kProgram = "zorvantine-window";

}  // namespace

Failed run(const SettingsCommand&, Console&) { return startProgram(kProgram); }

Failed run(const RunCommand&, Console&) { return startProgram(kProgram); }

Failed run(const SnapshotCommand&, Console&) { return startProgram(kProgram); }

}  // namespace zorvantine
