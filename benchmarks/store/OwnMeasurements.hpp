// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

// Measurements of our store alone: bursts of writes, observers in another process, the launch
// migration. Each prints a table. Stores are made in `folder`.
void measureBurst(const std::filesystem::path& folder);
void measureHearing(const std::filesystem::path& folder);
void measureMigration(const std::filesystem::path& folder);

// Runs the part of a measurement that the arguments name, in a process that was started for it.
// Returns false when they name none.
bool runPartOfMeasurement(int argc, char** argv);
