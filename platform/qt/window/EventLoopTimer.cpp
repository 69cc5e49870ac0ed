// SPDX-License-Identifier: MIT
#include "qt/EventLoopTimer.hpp"

#include <QTimer>
#include <memory>
#include <utility>

namespace qt {

QEVSettings::Subscription EventLoopTimer::after(std::chrono::seconds delay,
                                                std::function<void()> fire) {
  struct Deleter {
    // The timer may be calling the function that ends it.
    void operator()(QTimer* timer) const { timer->deleteLater(); }
  };
  const std::shared_ptr<QTimer> timer(new QTimer, Deleter());
  timer->setSingleShot(true);
  timer->setTimerType(Qt::VeryCoarseTimer);
  QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [fire = std::move(fire)] {
    const auto call = fire;
    call();
  });
  timer->start(delay);
  return QEVSettings::Subscription([timer] { timer->stop(); });
}

}  // namespace qt
