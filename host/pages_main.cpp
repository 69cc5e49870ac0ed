// SPDX-License-Identifier: MIT
#include "commands/RunCommandLine.hpp"

int main(int argc, char** argv) {
  return zorvantine::runCommandLine(argc, argv, zorvantine::Program::pages);
}
