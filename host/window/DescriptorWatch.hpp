#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zorvantine {

// Calls a function from the event loop whenever a descriptor becomes readable. A descriptor of -1
// never does. Needs a qt::Application; main thread.
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
