// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// Writes to standard error: messages for the user, each of them once, and lines of diagnostics.
// Both are escaped, because they may contain stored text. One per process. Any thread.
class Messages {
public:
  // From now on collects the diagnostics of the process until they are logged.
  Messages();
  ~Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  // Writes "zorvantine: MESSAGE" on one line. Ignores an empty message, and one that is part of an
  // earlier one.
  void say(std::string_view message);

  // Logs the collected diagnostics, except those that repeat a message.
  void logDiagnostics();

  // Logs them, and from now on logs each line at once.
  void logDiagnosticsAsTheyCome();

private:
  void take(std::string_view line);
  void logUnlessSaid(std::string_view line);

  std::mutex mutex_;
  bool logsAsTheyCome_ = false;
  std::vector<std::string> held_;
  std::vector<std::string> said_;
};

}  // namespace zorvantine
