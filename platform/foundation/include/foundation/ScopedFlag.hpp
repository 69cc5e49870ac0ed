// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace foundation {

// Sets a flag until the end of the block, and then restores its former value, also when an
// exception leaves the block.
//
//     const ScopedFlag pass(inPass_, true);  // false again when the function returns
class ScopedFlag {
public:
  ScopedFlag(bool& flag, bool value) : flag_(flag), before_(std::exchange(flag, value)) {}
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = before_; }

private:
  bool& flag_;
  bool before_;
};

}  // namespace foundation
