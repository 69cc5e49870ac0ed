// SPDX-License-Identifier: MIT
#pragma once

namespace zorvantine {

// While an object of this class exists, Qt's error messages go to the log and its warnings and
// debug messages are dropped. One at a time. Any thread may cause messages.
class QtMessages {
public:
  QtMessages();
  ~QtMessages();
  QtMessages(const QtMessages&) = delete;
  QtMessages& operator=(const QtMessages&) = delete;

  // Sets what is called before Qt stops the process, which it does when `act` returns. Null for
  // nothing.
  void beforeStop(void (*act)());
};

}  // namespace zorvantine
