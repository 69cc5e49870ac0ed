// SPDX-License-Identifier: MIT
#include "process/Interruption.hpp"

#include <sys/signalfd.h>
#include <unistd.h>

namespace zorvantine {

Interruption::Interruption() {
  sigset_t signals{};
  sigemptyset(&signals);
  sigaddset(&signals, SIGHUP);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, &before_);
  descriptor_ = ::signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
}

Interruption::~Interruption() {
  // A signal that is still pending would end the process as soon as it is no longer blocked.
  signalfd_siginfo received{};
  while (descriptor_ >= 0 && ::read(descriptor_, &received, sizeof received) > 0) {
  }
  if (descriptor_ >= 0) ::close(descriptor_);
  pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

}  // namespace zorvantine
