#pragma once

#include <filesystem>

// What only our store does: bursts of writes, telling another process, the launch migration. Each
// prints a table. `folder` is for stores, and is made.
void measureBurst(const std::filesystem::path& folder);
void measureHearing(const std::filesystem::path& folder);
void measureMigration(const std::filesystem::path& folder);

// The part of a measurement that runs in a process of its own, when the arguments name one.
bool runPartOfMeasurement(int argc, char** argv);
