// SPDX-License-Identifier: MIT
#include "OurPage.hpp"

#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/analyzers/QEVAnalyzerSettingsView.hpp"
#include "QEVSettings/general/QEVGeneralSettingsView.hpp"
#include "sparkle/UpdaterConfiguration.hpp"
#include "viewkit/ViewHost.hpp"

#include <stdexcept>
#include <string>

using viewkit::PresentationNode;
using viewkit::Role;

namespace {

constexpr double kMargin = 16;

class SilentDelegate final : public QEVDependencies::QEVAppDelegateProvider {
public:
  void setupAppearanceFromUserDefaults() override {}
};

// Fades are off, so the first painted frame shows everything.
viewkit::Environment environment(foundation::UserDefaults& store) {
  return {.defaultStore = store, .reducedMotion = true};
}

void collect(const PresentationNode& node, Role role, std::vector<const PresentationNode*>& into) {
  if (node.accessibility.role == role) into.push_back(&node);
  for (const PresentationNode* child : node.children) collect(*child, role, into);
}

QRect rectOf(const PresentationNode& node) {
  const viewkit::Rect frame = node.frameInWindow();
  return QRectF(frame.origin.x, frame.origin.y, frame.size.width, frame.size.height).toRect();
}

}  // namespace

OurPage::OurPage()
    : window_(std::make_unique<qt::Window>(qt::WindowOptions{
          .title = "Settings",
          .size = {760, 552},
          .environment = environment(*store_),
          .root = viewkit::View(QEVSettings::QEVAnalyzerSettingsView()).padding(kMargin)})) {}

OurPage::~OurPage() = default;

std::vector<const PresentationNode*> OurPage::all(qt::Window& window, Role role) {
  std::vector<const PresentationNode*> found;
  collect(window.host().presentation(), role, found);
  return found;
}

QRect OurPage::first(qt::Window& window, Role role) {
  const auto found = all(window, role);
  if (found.empty())
    throw std::runtime_error("the page has no " + std::string(viewkit::nameOf(role)));
  return rectOf(*found.front());
}

QRect OurPage::analyzer(int row) {
  return rectOf(*all(*window_, Role::listItem).at(static_cast<std::size_t>(row)));
}
QRect OurPage::details() { return rectOf(*all(*window_, Role::scrollArea).back()); }
QRect OurPage::firstSwitch() { return first(*window_, Role::toggle); }
QRect OurPage::firstPorts() { return first(*window_, Role::textField); }

QWidget& OurPage::timeZoneWindow() {
  if (!timeZones_) {
    sparkle::UpdaterConfiguration configuration;
    configuration.store = store_.get();
    sparkle::UpdaterConfiguration::setStandard(configuration);
    updater_ = std::make_shared<QEVSettings::UpdaterViewModel>();
    timeZones_ = std::make_unique<qt::Window>(qt::WindowOptions{
        .title = "General",
        .environment = environment(*store_),
        .root = QEVSettings::QEVGeneralSettingsView(std::make_shared<SilentDelegate>(), updater_)});
  }
  return timeZones_->widget();
}

QRect OurPage::timeZoneMenu() { return first(*timeZones_, Role::menuButton); }
