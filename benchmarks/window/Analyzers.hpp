#pragma once

#include <cstddef>

// Registers this many made-up analyzers, all alike: five options, and a table of six protocols with
// their ports.
void registerAnalyzers(std::size_t count);
