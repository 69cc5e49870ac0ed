// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/SymbolName.hpp"

#include <map>
#include <string_view>

namespace QEVSettings {

// How an analyzer's option is listed: its position among the others and its icon.
struct AnalyzerOptionStyle {
  int order = 0;
  viewkit::SymbolName symbol;
};

// The styles of the options that many analyzers share, by label key.
const std::map<std::string_view, AnalyzerOptionStyle>& analyzerOptionStyles();

// The style of any option. Options outside the table share one position, behind those in it.
AnalyzerOptionStyle optionStyle(std::string_view forLabelKey);

}  // namespace QEVSettings
