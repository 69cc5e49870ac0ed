#pragma once

#include <string>

namespace QEVDependencies {

// How the packets of one analyzer's protocol are coloured.
struct AnalyzerColorSpec {
  // The key of the colour in the preferences store, where it is text. Begins with "com_velloquin_qev_"
  // and ends with "_color".
  std::string colorKey;
  // The key of the Boolean that switches the colouring on; off while it is absent.
  std::string usesColorKey;
};

}  // namespace QEVDependencies
