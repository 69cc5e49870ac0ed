// SPDX-License-Identifier: MIT
#include "Driver.hpp"

#include <QApplication>

// An empty window of the same size: the least that a program with Qt Widgets takes.
int main(int argc, char** argv) {
  const Task task = Task::of(argc, argv);
  const QApplication application(argc, argv);
  Driver driver(task, Clock::now());
  QWidget window;
  window.setWindowTitle(QStringLiteral("Settings"));
  window.resize(kWindowWidth, kWindowHeight);
  driver.showFirstFrame(window);
}
