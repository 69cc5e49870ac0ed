// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace QEVDependencies {

// One on/off option of an analyzer.
//
//     config.toggles.push_back({.id = "checksums",
//                               .defaultsKey = "com_velloquin_qev_dns_checksums",
//                               .defaultValue = true,
//                               .labelKey = "Verify checksums"});
struct AnalyzerToggleSpec {
  // Unique among the options of the analyzer.
  std::string id;
  // The key of the option's Boolean in the preferences store, and its value while it is absent.
  std::string defaultsKey;
  bool defaultValue = false;
  // The English label. It is shown in the user's language when the module's string table has it.
  std::string labelKey;
};

}  // namespace QEVDependencies
