// SPDX-License-Identifier: MIT
#pragma once

#include "AnalyzerPage.hpp"
#include "foundation/UserDefaults.hpp"
#include "window/Contender.hpp"

#include <QComboBox>

#include <memory>

namespace twin {

// The page written by hand, as the driver uses it.
class TwinPage final : public Contender {
public:
  TwinPage();

  QWidget& window() override { return page_; }
  QRect analyzer(int row) override;
  QRect details() override;
  QRect firstSwitch() override;
  QRect firstPorts() override;
  QWidget& timeZoneWindow() override;
  QRect timeZoneMenu() override;

private:
  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
  AnalyzerPage page_{*store_};
  std::unique_ptr<QWidget> timeZones_;
  QComboBox* menu_ = nullptr;
};

}  // namespace twin
