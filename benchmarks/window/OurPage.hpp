// SPDX-License-Identifier: MIT
#pragma once

#include "Contender.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "foundation/UserDefaults.hpp"
#include "qt/Window.hpp"
#include "viewkit/PresentationNode.hpp"

#include <memory>
#include <vector>

// The real pages in the real window.
class OurPage final : public Contender {
public:
  OurPage();
  ~OurPage() override;

  QWidget& window() override { return window_->widget(); }
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
  static std::vector<const viewkit::PresentationNode*> all(qt::Window& window, viewkit::Role role);
  // The first node of a role, and its place. There must be one.
  static const viewkit::PresentationNode& firstNode(qt::Window& window, viewkit::Role role);
  static QRect first(qt::Window& window, viewkit::Role role);

  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater_;
  std::unique_ptr<qt::Window> window_;
  std::unique_ptr<qt::Window> tabs_;
};
