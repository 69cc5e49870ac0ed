// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>

namespace viewkit {

// Memory for the temporary arrays of one layout. It is on the stack, and large enough for the
// number of children of most containers.
class Scratch {  // NOLINT(cppcoreguidelines-pro-type-member-init): see `room_`
public:
  std::pmr::memory_resource* memory() { return &memory_; }

private:
  // Not cleared, because layout creates one of these for every container that it measures.
  std::array<std::byte, 1024> room_;
  std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
};

}  // namespace viewkit
