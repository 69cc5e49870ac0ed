// SPDX-License-Identifier: MIT
#pragma once

#include "tree/NodeServices.hpp"

#include <deque>
#include <functional>

namespace viewkit {

// The handlers that wait for the end of layout.
class Handlers {
public:
  void append(HandlerKind kind, std::function<void()> handler);
  void prepend(HandlerKind kind, std::function<void()> handler);
  bool isEmpty() const { return waiting_.empty(); }

  // Calls the handlers that wait now; those that they add wait for the next call. Handlers of
  // changes are dropped with a message where `withChanges` is false.
  void call(bool withChanges);
  // Calls the handlers of events that wait, and those that they add; drops the handlers of changes.
  void callLast();

private:
  struct Handler {
    HandlerKind kind;
    std::function<void()> call;
  };

  Handler takeFirst();

  std::deque<Handler> waiting_;
};

}  // namespace viewkit
