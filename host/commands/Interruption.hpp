#pragma once

#include <csignal>

namespace zorvantine {

// While it lives, SIGHUP, SIGINT and SIGTERM do not end the process but make a descriptor readable.
// A signal that the process was started to ignore, as nohup does with SIGHUP, stays ignored.
class Interruption {
public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  // -1 when there is none to be had.
  int descriptor() const { return descriptor_; }

private:
  sigset_t before_{};
  int descriptor_ = -1;
};

}  // namespace zorvantine
