#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

namespace QEVCoreComponents {

// Shows and edits all options of the next capture. Whatever it changes, it changes in the model.
struct CaptureCockpitView {
  viewkit::ObservedObject<QEVCaptureViewModel> viewModel;

  viewkit::View body() const;

private:
  viewkit::View interfaceList() const;
  viewkit::View options() const;
};

}  // namespace QEVCoreComponents
