#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>

namespace viewkit {

// What layout needs for a while: on the stack, for as many children as most containers have.
class Scratch {
public:
  std::pmr::memory_resource* memory() { return &memory_; }

private:
  // Nobody reads what nobody wrote, and layout comes here too often to clear it.
  std::array<std::byte, 1024> room_;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
};

}  // namespace viewkit
