#pragma once

#include "system/FileDescriptor.hpp"

#include <filesystem>

namespace foundation {

// How long to wait for a process that holds a store.
enum class Patience { none, aMoment };

// Keeps other processes from making, recovering or copying the same store meanwhile: a lock on
// NAME.lock.
class RepairLock {
public:
  RepairLock(const std::filesystem::path& store, Patience patience);

  bool isHeld() const { return isHeld_; }

private:
  FileDescriptor file_;
  bool isHeld_ = false;
};

}  // namespace foundation
