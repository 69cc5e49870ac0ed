// SPDX-License-Identifier: MIT
#pragma once

#include "analyzers/AnalyzerDescription.hpp"

#include <vector>

namespace zorvantine {

std::vector<AnalyzerDescription> linkAnalyzers();
std::vector<AnalyzerDescription> internetAnalyzers();
std::vector<AnalyzerDescription> transportAnalyzers();
std::vector<AnalyzerDescription> networkServiceAnalyzers();
std::vector<AnalyzerDescription> webAnalyzers();
std::vector<AnalyzerDescription> mailAnalyzers();
std::vector<AnalyzerDescription> fileAnalyzers();
std::vector<AnalyzerDescription> mediaAnalyzers();

}  // namespace zorvantine
