// SPDX-License-Identifier: MIT
#include "analyzers/ports/PortSourceCell.hpp"

#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "analyzers/ports/PortMenu.hpp"
#include "resources/resource_bundle_accessor.hpp"

#include <string>
#include <vector>

namespace QEVSettings {

using namespace viewkit;
using QEVDependencies::kQEVSourceProtocols;

namespace {

// The same in every language.
std::string labelOf(std::int64_t source) {
  if (source == kQEVSourceProtocols::allCases[1]) return "TCP";
  if (source == kQEVSourceProtocols::allCases[2]) return "UDP";
  if (source == kQEVSourceProtocols::allCases[3]) return "UDP/TCP";
  return "None";
}

}  // namespace

View PortSourceCell::body() const {
  return portMenu(labelOf(model->sourceProtocol), localized("Source"), [onPick = onPick] {
    std::vector<MenuItem> items;
    items.reserve(kQEVSourceProtocols::allCases.size());
    for (const std::int64_t source : kQEVSourceProtocols::allCases) {
      items.push_back({.title = labelOf(source), .action = [onPick, source] { onPick(source); }});
    }
    return items;
  });
}

}  // namespace QEVSettings
