// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

std::vector<AnalyzerDescription> linkAnalyzers() {
  return {
      {
          .name = "ethernet",
          .id = "C07D4D5B-B084-4B40-83AC-5A4D05AE5A11",
          .title = "Ethernet",
          .description =
              "Splits a frame into addresses, VLAN tags and payload, and checks its trailer.",
          .version = "3.1",
          .options = {computeChecksums(),
                      resolveVendors(),
                      {.name = "vlan_tags",
                       .label = "Show VLAN tags in the packet list",
                       .isOnByDefault = true}},
          .preferences = Preferences::settings,
      },
      {
          .name = "arp",
          .id = "F55A5A12-7C45-45B1-AF0F-0F0E0536D14E",
          .title = "ARP",
          .description = "Pairs address requests with their answers, and notices when two machines "
                         "claim one address.",
          .version = "2.0",
          .options = {resolveVendors(),
                      {.name = "duplicates",
                       .label = "Warn of duplicate addresses",
                       .isOnByDefault = true}},
          .preferences = Preferences::settings,
      },
      {
          .name = "lldp",
          .id = "4E2101C6-E025-441F-9684-E6292BD61DAE",
          .title = "LLDP",
          .description =
              "Lists what switches say about themselves and the ports at both ends of a cable.",
          .isColored = false,
          .preferences = Preferences::none,
      },
  };
}

}  // namespace zorvantine
