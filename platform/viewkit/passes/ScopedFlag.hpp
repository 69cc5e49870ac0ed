#pragma once

#include <utility>

namespace viewkit {

// Sets a flag until the end of the block, also if an exception leaves it.
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

}  // namespace viewkit
