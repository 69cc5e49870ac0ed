#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// The Capture page. A click on it outside of any control ends the editing of text.
struct QEVCaptureSettingsView {
  viewkit::ObservedObject<QEVCoreComponents::QEVCaptureViewModel> captureModel;

  viewkit::View body() const;
};

}  // namespace QEVSettings
