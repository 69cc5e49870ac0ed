#include "window/startAgainWithoutDisplay.hpp"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace zorvantine {

void startAgainWithoutDisplay() {
  std::ifstream commandLine("/proc/self/cmdline", std::ios::binary);
  std::vector<std::string> words;
  for (std::string word; std::getline(commandLine, word, '\0');) words.push_back(word);
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) ::unsetenv(name);
  // The signals that this process holds back would be held back in the new one too.
  sigset_t none{};
  sigemptyset(&none);
  pthread_sigmask(SIG_SETMASK, &none, nullptr);
  ::execv("/proc/self/exe", arguments.data());
}

}  // namespace zorvantine
