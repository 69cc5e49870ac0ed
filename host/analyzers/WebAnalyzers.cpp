// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

std::vector<AnalyzerDescription> webAnalyzers() {
  return {
      {
          .name = "http",
          .id = "84607B3C-89F1-40B0-B17B-114E98521DB7",
          .title = "HTTP",
          .description =
              "Pairs requests with responses, unpacks bodies, and follows version 2 streams.",
          .version = "6.1",
          .options = {keepCredentialsPrivate(),
                      {.name = "http2", .label = "Enable HTTP/2 Detection", .isOnByDefault = true},
                      {.name = "unpack",
                       .label = "Unpack compressed bodies",
                       .isOnByDefault = true}},
          .protocols = {{"HTTP", "80", Transport::tcp},
                        {"HTTP alternate", "591,8008,8080", Transport::tcp}},
      },
      {
          .name = "mqtt",
          .id = "EFD2328D-58B8-4386-A85C-EEAF77F63015",
          .title = "MQTT",
          .description = "Shows who publishes what, who subscribes, and which message waits for an "
                         "acknowledgement.",
          .version = "1.1",
          .options = {keepCredentialsPrivate()},
          .protocols = {{"MQTT", "1883", Transport::tcp}},
      },
      {
          .name = "coap",
          .id = "8054D744-9204-45AF-BB09-49AAF0A3D387",
          .title = "CoAP",
          .description = "Reads the short requests of small devices, and joins their blocks.",
          .protocols = {{"CoAP", "5683", Transport::both},
                        {"CoAP over DTLS", "5684", Transport::udp}},
      },
      {
          .name = "ssh",
          .id = "FC3C10FD-3248-44A4-B694-55B648D4ED02",
          .title = "SSH",
          .description =
              "Shows the algorithms that both sides agreed on; what follows is their secret.",
          .version = "2.5",
          .protocols = {{"SSH", "22", Transport::tcp}, {"NETCONF over SSH", "830", Transport::tcp}},
      },
      {
          .name = "telnet",
          .id = "F6744BE6-3AE7-4AD4-9CF3-A0F77A36E44E",
          .title = "Telnet",
          .description =
              "Shows both sides of a terminal session, and the options that they negotiate.",
          .version = "1.4",
          .options = {keepCredentialsPrivate()},
          .protocols = {{"Telnet", "23", Transport::tcp}},
      },
  };
}

}  // namespace zorvantine
