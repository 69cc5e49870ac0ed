// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace QEVDependencies {

// How the packets of one analyzer's protocol are coloured.
//
//     config.color = AnalyzerColorSpec{.colorKey = "com_velloquin_qev_dns_color",
//                                      .usesColorKey = "com_velloquin_qev_dns_usesColor"};
struct AnalyzerColorSpec {
  // The key of the colour, which is stored as the text that QEVCommonTools::rawValue returns. Must
  // begin with "com_velloquin_qev_" and end with "_color", because the migration finds it by these.
  std::string colorKey;
  // The key of the Boolean that turns the colouring on. While it is absent, the colouring is off.
  std::string usesColorKey;
};

}  // namespace QEVDependencies
