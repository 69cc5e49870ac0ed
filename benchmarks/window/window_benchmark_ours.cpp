// SPDX-License-Identifier: MIT
#include "Analyzers.hpp"
#include "Driver.hpp"
#include "OurPage.hpp"
#include "qt/Application.hpp"

int main(int argc, char** argv) {
  const Task task = Task::of(argc, argv);
  registerAnalyzers(task.analyzers);
  const qt::Application application(argc, argv, qt::Application::Display::screen);
  Driver driver(task, Clock::now());
  OurPage page;
  driver.run(page);
}
