// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

std::vector<AnalyzerDescription> internetAnalyzers() {
  return {
      {
          .name = "ipv4",
          .id = "8F6B12CE-CFA0-40CD-8A4E-6279EFE20C54",
          .title = "IPv4",
          .description = "Reads the header with its options, and puts fragments together again.",
          .version = "4.2",
          .options = {computeChecksums(true),
                      resolveAddresses(),
                      {.name = "reassemble",
                       .label = "Reassemble fragments",
                       .isOnByDefault = true}},
          .preferences = Preferences::settings,
      },
      {
          .name = "ipv6",
          .id = "E0C45DE8-E774-4F9A-8D98-C17C560D86CA",
          .title = "IPv6",
          .description =
              "Follows the chain of extension headers, and puts fragments together again.",
          .version = "4.2",
          .options = {{.name = "reassemble",
                       .label = "Reassemble fragments",
                       .isOnByDefault = true},
                      resolveAddresses(),
                      {.name = "flow_labels", .label = "Group packets by flow label"}},
          .preferences = Preferences::settings,
      },
      {
          .name = "icmp",
          .id = "7AC12DD5-249B-4CAA-A4AE-A15EA7590A9F",
          .title = "ICMP",
          .description =
              "Explains error messages with the packet that caused them, and times each echo.",
          .version = "2.4",
          .options = {computeChecksums()},
          .preferences = Preferences::settings,
      },
  };
}

}  // namespace zorvantine
