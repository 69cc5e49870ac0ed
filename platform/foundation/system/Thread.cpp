// SPDX-License-Identifier: MIT
#include "foundation/Thread.hpp"

#include <csignal>
#include <new>
#include <system_error>
#include <utility>

namespace foundation {

std::optional<std::thread> startThreadWithoutSignals(std::function<void()> work) {
  sigset_t all;
  sigset_t before;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &before);
  std::optional<std::thread> thread;
  try {
    thread.emplace(std::move(work));
  } catch (const std::system_error&) {
    thread.reset();
  } catch (const std::bad_alloc&) {
    thread.reset();
  }
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return thread;
}

}  // namespace foundation
