// SPDX-License-Identifier: MIT
#include "commandline/PreferenceJSON.hpp"
#include "commandline/PreferenceLine.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/Translation.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "process/Interruption.hpp"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ostream>

namespace zorvantine {

using foundation::translated;

namespace {

void printJSON(std::string_view key, const std::optional<QEVSettings::PreferenceValue>& value,
               std::ostream& out) {
  foundation::JSONWriter writer;
  writer.beginObject().name("key").string(key);
  if (value) {
    writer.name("type").string(nameOf(value->type())).name("value");
    writePreference(writer, *value);
  } else {
    writer.name("removed").boolean(true);
  }
  out << writer.endObject().text() << std::endl;
}

}  // namespace

Failed run(const WatchPreferencesCommand& command, Console& console) {
  const Interruption interruption;
  const auto subscription = ProgramPreferences::inForce().observeAll([&](std::string_view key) {
    if (!command.keys.empty() && std::ranges::find(command.keys, key) == command.keys.end()) return;
    const auto value = ProgramPreferences::inForce().objectForKey(key);
    if (command.format == OutputFormat::json) {
      printJSON(key, value, console.out);
    } else {
      console.out << preferenceLine(key, value) << std::endl;
    }
  });
  const int arrivals = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  if (arrivals < 0 || interruption.descriptor() < 0) {
    return Failure{
        .message = translated("the store cannot be watched: the system has no descriptors left; "
                              "close other programs")};
  }
  auto& queue = foundation::MainQueue::mainQueue();
  queue.setWaker([arrivals] { ::eventfd_write(arrivals, 1); });

  std::array<pollfd, 2> waiting{
      {{.fd = arrivals, .events = POLLIN, .revents = 0},
       {.fd = interruption.descriptor(), .events = POLLIN, .revents = 0}}};
  // The loop also ends when nobody reads standard output any more.
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
