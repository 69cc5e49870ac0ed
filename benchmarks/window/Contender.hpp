// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QWidget>

// An Analyzer page in a window. Places are in the window's coordinates.
class Contender {
public:
  Contender() = default;
  Contender(const Contender&) = delete;
  Contender& operator=(const Contender&) = delete;
  virtual ~Contender() = default;

  virtual QWidget& window() = 0;
  // A row of the list, counted from 0.
  virtual QRect analyzer(int row) = 0;
  // The details of the selected analyzer, and the visible parts of them:
  virtual QRect details() = 0;
  virtual QRect firstSwitch() = 0;
  // Whether the first switch is shown as on.
  virtual bool isFirstSwitchOn() = 0;
  virtual QRect firstPorts() = 0;

  // A second window with the tabs General, which is selected, and Analyzer; made at the first call.
  virtual QWidget& tabWindow() = 0;
  virtual QRect tab(int index) = 0;
  // The place of the selected page.
  virtual QRect tabContent() = 0;
  // The menu of the time zones on the page General.
  virtual QRect timeZoneMenu() = 0;
};
