// SPDX-License-Identifier: MIT
#pragma once

#include "Child.hpp"
#include "system/FileDescriptor.hpp"

#include <unistd.h>

#include <array>
#include <functional>
#include <stdexcept>

namespace foundation {

// A child that waits until it is told to start. It is made before the test opens a store.
class WaitingChild {
public:
  explicit WaitingChild(const std::function<int()>& work) : WaitingChild(makePipe(), work) {}

  void start() const {
    if (::write(writeEnd_.get(), "!", 1) != 1) throw std::runtime_error("the child is gone");
  }
  // Its exit code; -1 when it was killed.
  int wait() { return child_.wait(); }

private:
  using Pipe = std::array<int, 2>;

  static Pipe makePipe() {
    Pipe pipe{};
    if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
    return pipe;
  }

  WaitingChild(Pipe pipe, const std::function<int()>& work)
      : readEnd_(pipe[0]), writeEnd_(pipe[1]), child_([&] {
          char go = 0;
          return ::read(readEnd_.get(), &go, 1) == 1 ? work() : -1;
        }) {}

  FileDescriptor readEnd_;
  FileDescriptor writeEnd_;
  Child child_;
};

}  // namespace foundation
