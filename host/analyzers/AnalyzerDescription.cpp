// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerDescription.hpp"

#include "analyzers/AnalyzerGroups.hpp"

#include <array>
#include <cstdio>
#include <iterator>

namespace zorvantine {

std::vector<AnalyzerDescription> sampleAnalyzers() {
  std::vector<AnalyzerDescription> all;
  for (const auto group :
       {linkAnalyzers, internetAnalyzers, transportAnalyzers, networkServiceAnalyzers, webAnalyzers,
        mailAnalyzers, fileAnalyzers, mediaAnalyzers}) {
    auto analyzers = group();
    all.insert(all.end(), std::move_iterator(analyzers.begin()),
               std::move_iterator(analyzers.end()));
  }
  return all;
}

AnalyzerDescription syntheticAnalyzer(std::size_t number) {
  constexpr std::size_t portCount = 65535;
  const std::string text = std::to_string(number);
  std::array<char, 37> id{};
  std::snprintf(id.data(), id.size(), "00000000-0000-4000-8000-%012zx", number);
  AnalyzerDescription analyzer{
      .name = "synthetic" + text,
      .id = id.data(),
      .title = "Analyzer " + text,
      .description = "Made up to see how a long list of analyzers behaves.",
      .options = {computeChecksums(), {.name = "trace", .label = "Trace every packet"}},
      .preferences = Preferences::settings};
  // Several kinds, so that the rows of a long list differ.
  analyzer.isColored = number % 3 != 0;
  if (number % 2 == 0) {
    analyzer.protocols = {
        {"Protocol " + text, std::to_string(number % portCount + 1), Transport::both}};
  }
  return analyzer;
}

OptionDescription computeChecksums(bool isOnByDefault) {
  return {.name = "checksums", .label = "Compute checksums", .isOnByDefault = isOnByDefault};
}

OptionDescription resolveAddresses() {
  return {.name = "resolve_names", .label = "Enable IP to DNS name resolution (may slow down)"};
}

OptionDescription resolveVendors() {
  return {.name = "resolve_vendors",
          .label = "Enable MAC to vendor ID resolution",
          .isOnByDefault = true};
}

OptionDescription keepCredentialsPrivate() {
  return {.name = "private_credentials",
          .label = "Keep usernames and passwords private",
          .isOnByDefault = true};
}

}  // namespace zorvantine
