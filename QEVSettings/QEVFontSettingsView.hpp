#pragma once

#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <optional>
#include <string>

namespace QEVSettings {

// The Fonts page: six fonts of the application's panes, each with a sample, kept in the preferences
// store. A sample's text is taken when the page is built and when the page itself changes the font; a
// change made elsewhere shows when the page is built again.
class QEVFontSettingsView {
public:
  QEVFontSettingsView();

  viewkit::View body() const;

private:
  using Description = viewkit::State<std::optional<std::string>>;

  Description packetTableFontDescription_;
  Description consoleFontDescription_;
  Description protocolDetailsFontDescription_;
  Description statisticsFontDescription_;
  Description dataSourcesHeadFontDescription_;
  Description dataSourcesListFontDescription_;
};

}  // namespace QEVSettings
