// SPDX-License-Identifier: MIT
#pragma once

#include "AnalyzerPage.hpp"
#include "GeneralPage.hpp"
#include "SwitchButton.hpp"
#include "foundation/UserDefaults.hpp"
#include "window/Contender.hpp"

#include <QTabWidget>

#include <memory>

namespace twin {

// The pages written by hand, as the driver uses it.
class TwinPage final : public Contender {
public:
  TwinPage();

  QWidget& window() override { return page_; }
  QRect analyzer(int row) override;
  QRect details() override;
  QRect firstSwitch() override;
  bool isFirstSwitchOn() override;
  QRect firstPorts() override;
  QWidget& tabWindow() override;
  QRect tab(int index) override;
  QRect tabContent() override;
  QRect timeZoneMenu() override;

private:
  const SwitchButton& switchButton() const;

  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
  AnalyzerPage page_{*store_};
  std::unique_ptr<QTabWidget> tabs_;
  GeneralPage* general_ = nullptr;
};

}  // namespace twin
