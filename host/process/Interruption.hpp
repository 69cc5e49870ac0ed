// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

namespace zorvantine {

// While an object of this class exists, SIGHUP, SIGINT and SIGTERM make a descriptor readable
// instead of ending the process. A signal that was ignored when the process started, such as SIGHUP
// under nohup, stays ignored.
class Interruption {
public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  // -1 when the system has no descriptor left.
  int descriptor() const { return descriptor_; }

private:
  sigset_t before_{};
  int descriptor_ = -1;
};

}  // namespace zorvantine
