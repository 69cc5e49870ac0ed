// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

// Registers a number of synthetic analyzers, each with five options and a table of six protocols
// with their ports.
void registerAnalyzers(std::size_t count);
