// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "process/StartProgram.hpp"

// The commands about pages and analyzers in a program that does not link views. Each starts the
// program that does, which reads the same command line and opens the store itself.

namespace zorvantine {

namespace {

constexpr const char* kProgram = "zorvantine-pages";

}  // namespace

Failed run(const DescribeCommand&, Console&) { return startProgram(kProgram); }

Failed run(const ListAnalyzersCommand&, Console&) { return startProgram(kProgram); }

}  // namespace zorvantine
