#include "commands/Interruption.hpp"

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
  // What came while it lived is used up here, or it would end the process the moment it may again.
  signalfd_siginfo received{};
  while (descriptor_ >= 0 && ::read(descriptor_, &received, sizeof received) > 0) {
  }
  if (descriptor_ >= 0) ::close(descriptor_);
  pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

}  // namespace zorvantine
