// SPDX-License-Identifier: MIT
#pragma once

#include "system/FileDescriptor.hpp"

#include <filesystem>

namespace foundation {

// How long to wait for a process that holds a store.
enum class Patience { none, aMoment };

// A lock on NAME.lock. While one process holds it, no other creates, recovers or copies the store.
class RepairLock {
public:
  RepairLock(const std::filesystem::path& store, Patience patience);

  bool isHeld() const { return isHeld_; }

private:
  FileDescriptor file_;
  bool isHeld_ = false;
};

}  // namespace foundation
