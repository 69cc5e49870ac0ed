#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// What the program writes to standard error: messages for a person, each of which is written once,
// and lines of diagnostics. Both are escaped, for they may hold text that somebody else stored. One
// a process. Any thread.
class Messages {
public:
  // Takes over the diagnostics of the process, and holds them back until they are logged.
  Messages();
  ~Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  // Writes "zorvantine: MESSAGE" on one line, unless the message is empty or was said before, alone
  // or as part of another.
  void say(std::string_view message);

  // Logs the diagnostics held back, except those that repeat what was said.
  void logDiagnostics();

  // Logs them, and from now on each line as it comes.
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
