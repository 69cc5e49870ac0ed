// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// The Capture page. A click outside of any control ends text editing.
struct QEVCaptureSettingsView {
  viewkit::ObservedObject<QEVCoreComponents::QEVCaptureViewModel> captureModel;

  viewkit::View body() const;
};

}  // namespace QEVSettings
