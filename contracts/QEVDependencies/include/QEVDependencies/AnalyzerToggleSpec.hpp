#pragma once

#include <string>

namespace QEVDependencies {

// One on/off option of an analyzer.
struct AnalyzerToggleSpec {
  // Distinct among the options of one analyzer.
  std::string id;
  // The key of the option's Boolean in the preferences store, and the value in effect without one.
  std::string defaultsKey;
  bool defaultValue = false;
  // The option's label in English: translated where the module's string table has it, or shown as
  // it is.
  std::string labelKey;
};

}  // namespace QEVDependencies
