// SPDX-License-Identifier: MIT
#include "analyzers/options/analyzerOptionStyles.hpp"

namespace QEVSettings {

const std::map<std::string_view, AnalyzerOptionStyle>& analyzerOptionStyles() {
  static const std::map<std::string_view, AnalyzerOptionStyle> styles{
      {"Compute checksums", {.order = 1, .symbol = "checkmark.seal"}},
      {"Enable IP to DNS name resolution (may slow down)",
       {.order = 2, .symbol = "arrow.left.arrow.right"}},
      {"Enable MAC to vendor ID resolution", {.order = 3, .symbol = "cpu"}},
      {"Keep usernames and passwords private", {.order = 4, .symbol = "lock.shield"}},
      {"Enable HTTP/2 Detection", {.order = 5, .symbol = "bolt"}},
  };
  return styles;
}

AnalyzerOptionStyle optionStyle(std::string_view forLabelKey) {
  const auto known = analyzerOptionStyles().find(forLabelKey);
  return known != analyzerOptionStyles().end()
             ? known->second
             : AnalyzerOptionStyle{.order = 100, .symbol = "slider.horizontal.3"};
}

}  // namespace QEVSettings
