#pragma once

#include <QRect>
#include <QWidget>

// An Analyzer page in a window, and where in it things are, in the window's coordinates.
class Contender {
public:
  Contender() = default;
  Contender(const Contender&) = delete;
  Contender& operator=(const Contender&) = delete;
  virtual ~Contender() = default;

  virtual QWidget& window() = 0;
  // A row of the list, counted from the first.
  virtual QRect analyzer(int row) = 0;
  // All about the selected analyzer; and in it, as far as they are in sight:
  virtual QRect details() = 0;
  virtual QRect firstSwitch() = 0;
  virtual QRect firstPorts() = 0;

  // Another window, with the menu of the time zones, made when it is first asked for.
  virtual QWidget& timeZoneWindow() = 0;
  virtual QRect timeZoneMenu() = 0;
};
