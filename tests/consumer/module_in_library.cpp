// SPDX-License-Identifier: MIT
#include "resources/resource_bundle_accessor.hpp"

#include <cstdio>

// Prints a text from the module's bundle.
extern "C" void printText() { std::puts(QEVSettings::localized("Fonts").c_str()); }
