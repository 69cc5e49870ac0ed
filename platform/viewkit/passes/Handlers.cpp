// SPDX-License-Identifier: MIT
#include "passes/Handlers.hpp"

#include "support/Diagnostics.hpp"

#include <cstddef>
#include <utility>

namespace viewkit {

void Handlers::append(HandlerKind kind, std::function<void()> handler) {
  waiting_.push_back({kind, std::move(handler)});
}

void Handlers::prepend(HandlerKind kind, std::function<void()> handler) {
  waiting_.push_front({kind, std::move(handler)});
}

Handlers::Handler Handlers::takeFirst() {
  Handler first = std::move(waiting_.front());
  waiting_.pop_front();
  return first;
}

void Handlers::call(bool withChanges) {
  // Each is taken off the queue before it is called: a handler may destroy the host, which calls
  // the rest.
  for (std::size_t left = waiting_.size(); left > 0 && !waiting_.empty(); --left) {
    const Handler handler = takeFirst();
    if (withChanges || handler.kind == HandlerKind::event) {
      handler.call();
    } else {
      reportMistake(
          "handlers of changes go on changing what they are called for; the last ones were not "
          "called");
    }
  }
}

void Handlers::callLast() {
  while (!waiting_.empty()) {
    const Handler handler = takeFirst();
    if (handler.kind == HandlerKind::event) handler.call();
  }
}

}  // namespace viewkit
