// SPDX-License-Identifier: MIT
#pragma once

#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "analyzers/AnalyzerSettingDetailsProvider.hpp"
#include "analyzers/AnalyzerSettingDetailsViewModel.hpp"
#include "appkit/Event.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/State.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/View.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace QEVSettings {

// The Analyzer tab: the list of the loaded analyzers and the details of the selected one. The
// selection is kept in the preferences store. The arrow keys move it from anywhere in the
// application unless a text is being edited.
class QEVAnalyzerSettingsView {
public:
  viewkit::View body() const;

private:
  using PlugIns = QEVModels::QEVPlugInsController::PlugIns;

  viewkit::View listBox() const;

  void appear(const viewkit::ScrollProxy& list) const;
  void disappear() const;
  void select(std::int64_t index, const viewkit::ScrollProxy& list) const;
  void handleKey(const appkit::Event& event) const;

  const PlugIns& pluginStructs() const { return *pluginStructs_.get(); }

  viewkit::StateObject<AnalyzerSettingDetailsProvider> detailsModelProvider_{
      [] { return std::make_shared<AnalyzerSettingDetailsProvider>(); }};
  viewkit::State<std::shared_ptr<AnalyzerSettingDetailsViewModel>> selectedItem_;
  viewkit::StoredPreference<std::int64_t> selection_{kAnalyzerSelectedIndex};
  viewkit::State<std::shared_ptr<appkit::Event::Monitor>> keyMonitor_;
  // The loaded analyzers as they were when the tab was made.
  viewkit::State<std::shared_ptr<const PlugIns>> pluginStructs_{
      QEVModels::QEVPlugInsController::sharedManager().snapshot()};
};

}  // namespace QEVSettings
