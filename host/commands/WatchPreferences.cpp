#include "commands/Commands.hpp"
#include "commands/Interruption.hpp"
#include "commands/PreferenceLine.hpp"
#include "foundation/MainQueue.hpp"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ostream>

namespace zorvantine {

Failed run(const WatchPreferencesCommand&, Console& console) {
  if (auto failure = storeFailure(Console::store())) return failure;
  const Interruption interruption;
  const auto subscription = Console::store().observeAll([&console](std::string_view key) {
    console.out << preferenceLine(key, Console::store().objectForKey(key)) << std::endl;
  });
  const int arrivals = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  if (arrivals < 0 || interruption.descriptor() < 0) {
    return Failure{.message = "the store cannot be watched: the system has no descriptors left; close other programs"};
  }
  auto& queue = foundation::MainQueue::mainQueue();
  queue.setWaker([arrivals] { ::eventfd_write(arrivals, 1); });

  std::array<pollfd, 2> waiting{{{.fd = arrivals, .events = POLLIN, .revents = 0},
                                 {.fd = interruption.descriptor(), .events = POLLIN, .revents = 0}}};
  // A reader that goes away ends the watching as an interruption does.
  while (console.out) {
    queue.drainAll();
    if (::poll(waiting.data(), waiting.size(), queue.pollTimeout()) < 0 && errno != EINTR) break;
    if (waiting[1].revents != 0) break;
    eventfd_t count = 0;
    ::eventfd_read(arrivals, &count);
  }
  queue.setWaker({});
  ::close(arrivals);
  return std::nullopt;
}

}  // namespace zorvantine
