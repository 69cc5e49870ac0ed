// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

// Counts every allocation of the process since the counter was last set to zero.
extern std::size_t allocatedBytes;
