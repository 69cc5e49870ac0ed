// SPDX-License-Identifier: MIT
#include "analyzers/ports/PortNameCell.hpp"

#include "analyzers/ports/PortMenu.hpp"
#include "resources/resource_bundle_accessor.hpp"

namespace QEVSettings {

using namespace viewkit;

View PortNameCell::body() const {
  const std::string& name = model->protocolName;
  return portMenu(name.empty() ? localized("Select") : name, localized("Name"),
                  [names = names, onPick = onPick] {
                    std::vector<MenuItem> items;
                    items.reserve(names.size());
                    for (const std::string& each : names) {
                      items.push_back({.title = each, .action = [onPick, each] { onPick(each); }});
                    }
                    return items;
                  });
}

}  // namespace QEVSettings
