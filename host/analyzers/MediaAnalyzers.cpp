// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

std::vector<AnalyzerDescription> mediaAnalyzers() {
  return {
      {
          .name = "sip",
          .id = "379E9B3F-92D0-46D0-9A25-AABCDBBA28BC",
          .title = "SIP",
          .description = "Draws a call from invitation to goodbye, and names the media streams "
                         "that belong to it.",
          .version = "3.0",
          .options = {keepCredentialsPrivate(),
                      {.name = "media_streams",
                       .label = "Find the media streams of each call",
                       .isOnByDefault = true}},
          .protocols = {{"SIP", "5060", Transport::both}},
      },
      {
          .name = "rtp",
          .id = "DD1B7979-D53D-493D-907D-1F175D9BE34B",
          .title = "RTP",
          .description =
              "Measures jitter and loss of each stream, and reads the reports that go with it.",
          .version = "2.2",
          .options = {{.name = "any_port", .label = "Recognise RTP on any even port"}},
          .protocols = {{"RTP", "5004", Transport::udp}, {"RTCP", "5005", Transport::udp}},
      },
  };
}

}  // namespace zorvantine
