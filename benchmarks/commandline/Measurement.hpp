// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

// How long a program takes from its start to its end, and how much memory it needs.
class Measurement {
public:
  // The words start with the program, which is looked for in PATH. `before` runs ahead of each
  // measured run and is not measured.
  Measurement(std::string name, std::vector<std::string> words,
              std::vector<std::string> before = {});

  // Runs the program once. Ends this process when it cannot be started or fails.
  void run();

  const std::string& name() const { return name_; }
  // Of all runs so far, of which there is at least one.
  double medianMilliseconds() const;
  double medianProcessorMilliseconds() const;
  // The largest one, in KB. Of a program that is smaller than this one, the size of this one.
  long peakMemory() const { return peakMemory_; }

private:
  std::string name_;
  std::vector<std::string> words_;
  std::vector<std::string> before_;
  std::vector<double> wall_;
  std::vector<double> processor_;
  long peakMemory_ = 0;
};
