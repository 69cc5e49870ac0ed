#pragma once

#include <utility>

namespace viewkit {

// Sets a flag until the end of the block, also if an exception leaves it.
class Setting {
public:
  Setting(bool& flag, bool value) : flag_(flag), before_(std::exchange(flag, value)) {}
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;
  ~Setting() { flag_ = before_; }

private:
  bool& flag_;
  bool before_;
};

}  // namespace viewkit
