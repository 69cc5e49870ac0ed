// SPDX-License-Identifier: MIT
#pragma once

namespace QEVCommonTools {

// The chapters of the help, one for each page of the settings window.
//
//     setHelpHandler([](QEVHelpAnchor anchor) {
//       return anchor == QEVHelpAnchor::settingsFonts && openManual("fonts.html");
//     });
enum class QEVHelpAnchor {
  settingsGeneral,
  settingsCapture,
  proxy,
  settingsAnalyzers,
  settingsFonts
};

}  // namespace QEVCommonTools
