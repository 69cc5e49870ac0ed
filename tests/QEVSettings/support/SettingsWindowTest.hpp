// SPDX-License-Identifier: MIT
#pragma once

#include "HostParts.hpp"
#include "headless/Window.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace QEVSettings {

// Opens the whole settings window without a screen.
class SettingsWindowTest : public testing::Test, protected HostParts {
protected:
  using Tabs = QEVSettingsView::Tabs;

  ~SettingsWindowTest() override { close(); }

  headless::Window& open(Tabs tab, std::optional<viewkit::View> proxyTab = std::nullopt);
  void close() { window_.reset(); }

  // The rectangles that are tinted because the pointer is over them.
  static std::vector<viewkit::Rect> tints(const headless::Window& window);

private:
  std::unique_ptr<headless::Window> window_;
};

}  // namespace QEVSettings
