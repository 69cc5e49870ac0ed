// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zorvantine {

// Calls a function from the event loop whenever a descriptor becomes readable. The descriptor -1
// never becomes readable. Needs a qt::Application; main thread.
class DescriptorWatch {
public:
  DescriptorWatch(int descriptor, std::function<void()> becameReadable);
  ~DescriptorWatch();
  DescriptorWatch(const DescriptorWatch&) = delete;
  DescriptorWatch& operator=(const DescriptorWatch&) = delete;

private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace zorvantine
