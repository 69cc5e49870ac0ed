// SPDX-License-Identifier: MIT
#include "SettingsWindowTest.hpp"

#include <utility>
#include <variant>

namespace QEVSettings {

headless::Window& SettingsWindowTest::open(Tabs tab, std::optional<viewkit::View> proxyTab) {
  close();
  window_ = std::make_unique<headless::Window>(
      settingsView(tab, std::move(proxyTab)), viewkit::Environment{.defaultStore = store},
      headless::WindowOptions{.size = viewkit::Size{720, 680}});
  return *window_;
}

namespace {

void collectTints(const viewkit::PresentationNode& node, std::vector<viewkit::Rect>& tints) {
  const auto* shape = std::get_if<viewkit::ShapeVisual>(&node.content);
  if (shape && shape->fill == appkit::Color::primary().withOpacity(0.06))
    tints.push_back(node.frameInWindow());
  for (const viewkit::PresentationNode* child : node.children) collectTints(*child, tints);
}

}  // namespace

std::vector<viewkit::Rect> SettingsWindowTest::tints(const headless::Window& window) {
  std::vector<viewkit::Rect> tints;
  collectTints(window.host().presentation(), tints);
  return tints;
}

}  // namespace QEVSettings
