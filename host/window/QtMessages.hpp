#pragma once

namespace zorvantine {

// What Qt says about itself: while this lives, its errors go where the program's own diagnostics
// go, and its remarks, on the surroundings above all, go nowhere. One at a time; any thread may
// cause messages.
class QtMessages {
public:
  QtMessages();
  ~QtMessages();
  QtMessages(const QtMessages&) = delete;
  QtMessages& operator=(const QtMessages&) = delete;

  // Called when Qt is about to stop the process, which it does when `act` returns. Null for
  // nothing.
  void beforeStop(void (*act)());
};

}  // namespace zorvantine
