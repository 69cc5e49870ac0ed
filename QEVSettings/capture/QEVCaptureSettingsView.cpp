// SPDX-License-Identifier: MIT
#include "capture/QEVCaptureSettingsView.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "QEVCoreComponents/CaptureCockpitView.hpp"
#include "appkit/Application.hpp"
#include "appkit/Window.hpp"
#include "foundation/MainQueue.hpp"
#include "viewkit/GroupBox.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::Spacing;
using QEVCoreComponents::CaptureCockpitView;

namespace {

// Runs on a later turn of the main queue, after the click has been handled.
void endTextEditingLater() {
  foundation::MainQueue::mainQueue().async([] {
    if (appkit::Window* window = appkit::Application::sharedApplication().keyWindow()) {
      window->makeFirstResponder(nullptr);
    }
  });
}

}  // namespace

View QEVCaptureSettingsView::body() const {
  return GroupBox{
      View(CaptureCockpitView{.viewModel = captureModel.get()})
          .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::leading()})
          .padding(Spacing::s6)
          .onTap(endTextEditingLater)};
}

}  // namespace QEVSettings
