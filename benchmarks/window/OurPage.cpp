// SPDX-License-Identifier: MIT
#include "OurPage.hpp"

#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/analyzers/QEVAnalyzerSettingsView.hpp"
#include "QEVSettings/general/QEVGeneralSettingsView.hpp"
#include "sparkle/UpdaterConfiguration.hpp"
#include "viewkit/State.hpp"
#include "viewkit/TabView.hpp"
#include "viewkit/ViewHost.hpp"
#include "window/Task.hpp"

#include <QTabBar>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>

using viewkit::PresentationNode;
using viewkit::Role;

namespace {

constexpr double kMargin = 16;
constexpr viewkit::Size kSize{kWindowWidth, kWindowHeight};

class SilentDelegate final : public QEVDependencies::QEVAppDelegateProvider {
public:
  void setupAppearanceFromUserDefaults() override {}
};

// Fades are off, so the first painted frame shows everything.
viewkit::Environment environment(foundation::UserDefaults& store) {
  return {.defaultStore = store, .reducedMotion = true};
}

enum class Page : std::uint8_t { general, analyzer };

struct TabbedPages {
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater;
  viewkit::State<Page> selected{Page::general};

  viewkit::View body() const {
    return viewkit::TabView(
        selected.binding(),
        std::vector<viewkit::Tab<Page>>{{.tag = Page::general,
                                         .title = "General",
                                         .symbol = "tortoise",
                                         .page = QEVSettings::QEVGeneralSettingsView(
                                             std::make_shared<SilentDelegate>(), updater)},
                                        {.tag = Page::analyzer,
                                         .title = "Analyzer",
                                         .symbol = "puzzlepiece.extension",
                                         .page = QEVSettings::QEVAnalyzerSettingsView()}});
  }
};

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
          .size = kSize,
          .environment = environment(*store_),
          .root = viewkit::View(QEVSettings::QEVAnalyzerSettingsView()).padding(kMargin)})) {}

OurPage::~OurPage() = default;

std::vector<const PresentationNode*> OurPage::all(qt::Window& window, Role role) {
  std::vector<const PresentationNode*> found;
  collect(window.host().presentation(), role, found);
  return found;
}

const PresentationNode& OurPage::firstNode(qt::Window& window, Role role) {
  const auto found = all(window, role);
  if (found.empty())
    throw std::runtime_error("the page has no " + std::string(viewkit::nameOf(role)));
  return *found.front();
}

QRect OurPage::first(qt::Window& window, Role role) { return rectOf(firstNode(window, role)); }

QRect OurPage::analyzer(int row) {
  return rectOf(*all(*window_, Role::listItem).at(static_cast<std::size_t>(row)));
}
QRect OurPage::details() { return rectOf(*all(*window_, Role::scrollArea).back()); }
QRect OurPage::firstSwitch() { return first(*window_, Role::toggle); }
bool OurPage::isFirstSwitchOn() {
  return std::get<viewkit::ToggleControl>(*firstNode(*window_, Role::toggle).control()).isOn;
}
QRect OurPage::firstPorts() { return first(*window_, Role::textField); }

QWidget& OurPage::tabWindow() {
  if (!tabs_) {
    sparkle::UpdaterConfiguration configuration;
    configuration.store = store_.get();
    sparkle::UpdaterConfiguration::setStandard(configuration);
    updater_ = std::make_shared<QEVSettings::UpdaterViewModel>();
    tabs_ = std::make_unique<qt::Window>(qt::WindowOptions{
        .title = "Settings",
        .size = kSize,
        .environment = environment(*store_),
        .root = viewkit::View(TabbedPages{.updater = updater_}).padding(kMargin)});
  }
  return tabs_->widget();
}

QRect OurPage::tab(int index) {
  const QWidget& window = tabs_->widget();
  const auto* const bar = window.findChild<QTabBar*>();
  return bar->tabRect(index).translated(bar->mapTo(&window, QPoint()));
}

QRect OurPage::tabContent() {
  QRect content = tabs_->widget().rect();
  content.setTop(first(*tabs_, Role::tabList).bottom() + 1);
  return content;
}

QRect OurPage::timeZoneMenu() { return first(*tabs_, Role::menuButton); }
