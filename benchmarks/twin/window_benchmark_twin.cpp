// SPDX-License-Identifier: MIT
#include "TwinPage.hpp"
#include "window/Analyzers.hpp"
#include "window/Driver.hpp"

#include <QApplication>

int main(int argc, char** argv) {
  const Task task = Task::of(argc, argv);
  registerAnalyzers(task.analyzers);
  const QApplication application(argc, argv);
  Driver driver(task, Clock::now());
  twin::TwinPage page;
  driver.run(page);
}
