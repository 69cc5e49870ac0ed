// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

namespace {

AnalyzerDescription tcp() {
  return {
      .name = "tcp",
      .id = "59FBAB0C-A61B-477C-8A61-2354F48CD19A",
      .title = "TCP",
      .description =
          "Follows each connection from handshake to close, and marks what was lost or sent twice.",
      .version = "5.0",
      .options = {{.name = "relative_numbers",
                   .label = "Show relative sequence numbers",
                   .isOnByDefault = true},
                  {.name = "retransmissions",
                   .label = "Mark retransmissions",
                   .isOnByDefault = true},
                  computeChecksums()},
      .preferences = Preferences::settings,
  };
}

AnalyzerDescription udp() {
  return {
      .name = "udp",
      .id = "015C92C9-B1D8-497A-9160-6B6E60AE99E0",
      .title = "UDP",
      .description = "Reads ports and length, and hands the payload to whoever claims the port.",
      .version = "5.0",
      .options = {computeChecksums()},
      .preferences = Preferences::settings,
  };
}

AnalyzerDescription quic() {
  return {
      .name = "quic",
      .id = "FA013A74-33D8-418D-8CF4-DDEE249A25BB",
      .title = "QUIC",
      .description =
          "Tells connections apart by their identifiers, and opens the packets of the handshake.",
      .version = "1.3",
      .options = {{.name = "any_port",
                   .label = "Recognise QUIC on any port",
                   .isOnByDefault = true},
                  {.name = "migration",
                   .label = "Follow connections to new addresses",
                   .isOnByDefault = true}},
      .protocols = {{"HTTP/3", "443", Transport::udp}, {"DNS over QUIC", "853", Transport::udp}},
  };
}

AnalyzerDescription tls() {
  return {
      .name = "tls",
      .id = "9C752ACD-20CB-4ABF-BFED-6B0827DB3017",
      .title = "TLS",
      .description =
          "Shows versions, cipher suites, names and certificates, and decrypts with a log of "
          "session keys.",
      .version = "3.7",
      .options = {{.name = "certificates",
                   .label = "Check certificate dates",
                   .isOnByDefault = true}},
      .protocols = {{"HTTPS", "443", Transport::tcp},
                    {"SMTPS", "465", Transport::tcp},
                    {"LDAPS", "636", Transport::tcp},
                    {"DNS over TLS", "853", Transport::tcp},
                    {"FTPS", "989,990", Transport::tcp},
                    {"IMAPS", "993", Transport::tcp},
                    {"POP3S", "995", Transport::tcp},
                    {"SIPS", "5061", Transport::tcp},
                    {"MQTTS", "8883", Transport::tcp}},
      .extraContent = ExtraContent::keyLogField,
  };
}

}  // namespace

std::vector<AnalyzerDescription> transportAnalyzers() { return {tcp(), udp(), quic(), tls()}; }

}  // namespace zorvantine
