#pragma once

#include <cstddef>

// Of the whole process, since it was last set to zero: every allocation of the program counts here.
extern std::size_t allocatedBytes;
