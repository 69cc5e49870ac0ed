#pragma once

#include <string>

namespace QEVDependencies {

// How the packets of one analyzer's protocol are coloured.
struct AnalyzerColorSpec {
  // The key of the colour in the preferences store, where it is the text that
  // QEVCommonTools::rawValue makes. Begins with "com_velloquin_qev_" and ends with "_color", which
  // the migration goes by.
  std::string colorKey;
  // The key of the Boolean that switches the colouring on; off while it is absent.
  std::string usesColorKey;
};

}  // namespace QEVDependencies
