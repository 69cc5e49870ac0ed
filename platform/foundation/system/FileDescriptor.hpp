// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace foundation {

// Owns a file descriptor; -1 stands for none.
class FileDescriptor {
public:
  explicit FileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
      close();
      descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
  }
  ~FileDescriptor() { close(); }

  explicit operator bool() const { return descriptor_ >= 0; }
  int get() const { return descriptor_; }

private:
  void close() const {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  int descriptor_;
};

}  // namespace foundation
