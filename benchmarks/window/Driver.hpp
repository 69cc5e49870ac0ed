// SPDX-License-Identifier: MIT
#pragma once

#include "Contender.hpp"
#include "Report.hpp"
#include "Task.hpp"

#include <QApplication>

#include <functional>

// Drives a contender with real mouse and key events, and prints a line for each action.
class Driver {
public:
  Driver(Task task, Clock::time_point ready) : task_(task), start_{.ready = ready} {}

  // Shows a window and prints the lines of the start.
  void showFirstFrame(QWidget& window);
  // Shows the contender's window and runs all actions.
  void run(Contender& contender);

private:
  using Watched = std::function<bool(const QWidget& painted, const QRect& rect)>;

  void measure(const char* name, const Watched& watched, const std::function<void()>& act) const;
  void waitFor(const Watched& watched) const;
  void runTabs(Contender& contender) const;

  Task task_;
  Start start_;
};
