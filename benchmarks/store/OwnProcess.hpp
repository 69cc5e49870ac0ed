// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

// Starts this program with other arguments, and reads what it prints.
class OwnProcess {
public:
  explicit OwnProcess(const std::string& arguments)
      : output_(::popen(
            ("'" + std::filesystem::read_symlink("/proc/self/exe").string() + "' " + arguments)
                .c_str(),
            "r")) {}
  OwnProcess(const OwnProcess&) = delete;
  OwnProcess& operator=(const OwnProcess&) = delete;
  ~OwnProcess() {
    if (output_ != nullptr) ::pclose(output_);
  }

  // The next number that it prints, or a negative one at the end.
  double number() {
    double value = -1;
    return output_ != nullptr && std::fscanf(output_, "%lf", &value) == 1 ? value : -1;
  }

private:
  FILE* output_;
};
