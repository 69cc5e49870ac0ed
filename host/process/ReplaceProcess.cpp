// SPDX-License-Identifier: MIT
#include "process/ReplaceProcess.hpp"

#include <unistd.h>

#include <csignal>
#include <fstream>
#include <string>
#include <vector>

namespace zorvantine {

void replaceProcess(const std::filesystem::path& program) {
  std::ifstream commandLine("/proc/self/cmdline", std::ios::binary);
  std::vector<std::string> words;
  for (std::string word; std::getline(commandLine, word, '\0');) words.push_back(word);
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  // A blocked signal stays blocked in the new program, which does not expect it.
  sigset_t none{};
  sigemptyset(&none);
  sigset_t before{};
  pthread_sigmask(SIG_SETMASK, &none, &before);
  ::execv(program.c_str(), arguments.data());
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace zorvantine
