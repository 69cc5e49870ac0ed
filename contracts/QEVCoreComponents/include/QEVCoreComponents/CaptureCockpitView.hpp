// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVCoreComponents {

// Shows and edits all options of the next capture. Each change goes to the model at once. The model
// is never null. Main thread.
//
//     auto capture = std::make_shared<QEVCaptureViewModel>(store, interfaces);
//     const viewkit::View page = CaptureCockpitView{.viewModel = capture};
struct CaptureCockpitView {
  viewkit::ObservedObject<QEVCaptureViewModel> viewModel;

  viewkit::View body() const;

private:
  viewkit::View interfaceList() const;
  viewkit::View options() const;
};

}  // namespace QEVCoreComponents
