#include "SettingsWindowTest.hpp"

#include "foundation/Bundle.hpp"

#include <utility>
#include <variant>

namespace QEVSettings {

SettingsWindowTest::SettingsWindowTest() {
  foundation::Bundle::setPreferredLanguages({"en"});
  sparkle::UpdaterConfiguration configuration;
  configuration.store = &updaterStore;
  sparkle::UpdaterConfiguration::setStandard(configuration);
  captureModel = std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(store.underneath(), interfaces);
  updater = std::make_shared<UpdaterViewModel>();
}

SettingsWindowTest::~SettingsWindowTest() {
  close();
  updater.reset();
  sparkle::UpdaterConfiguration::setStandard({});
}

QEVSettingsView SettingsWindowTest::settingsView(Tabs tab, std::optional<viewkit::View> proxyTab) const {
  return {updater, delegate, captureModel, tab, std::move(proxyTab)};
}

headless::Window& SettingsWindowTest::open(Tabs tab, std::optional<viewkit::View> proxyTab) {
  close();
  window_ = std::make_unique<headless::Window>(settingsView(tab, std::move(proxyTab)),
                                               viewkit::Environment{.defaultStore = store},
                                               headless::WindowOptions{.size = viewkit::Size{720, 680}});
  return *window_;
}

namespace {

void collectTints(const viewkit::PresentationNode& node, std::vector<viewkit::Rect>& tints) {
  const auto* shape = std::get_if<viewkit::ShapeVisual>(&node.content);
  if (shape && shape->fill == appkit::Color::primary().withOpacity(0.06)) tints.push_back(node.frameInWindow());
  for (const viewkit::PresentationNode* child : node.children) collectTints(*child, tints);
}

}  // namespace

std::vector<viewkit::Rect> SettingsWindowTest::tints(const headless::Window& window) {
  std::vector<viewkit::Rect> tints;
  collectTints(window.host().presentation(), tints);
  return tints;
}

}  // namespace QEVSettings
