// SPDX-License-Identifier: MIT
#include "window/DescriptorWatch.hpp"

#include <QSocketNotifier>

#include <utility>

namespace zorvantine {

DescriptorWatch::DescriptorWatch(int descriptor, std::function<void()> becameReadable) {
  if (descriptor < 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [act = std::move(becameReadable)] { act(); });
}

DescriptorWatch::~DescriptorWatch() = default;

}  // namespace zorvantine
