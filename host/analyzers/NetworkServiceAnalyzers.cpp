// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

namespace {

AnalyzerDescription dns() {
  return {
      .name = "dns",
      .id = "6B26BE2A-6C47-4C89-B558-D3F064B27620",
      .title = "DNS",
      .description = "Pairs questions with answers, and feeds the names that other analyzers show.",
      .version = "3.3",
      .options = {{.name = "answer_times", .label = "Show answer times", .isOnByDefault = true},
                  {.name = "dnssec", .label = "Show DNSSEC records"}},
      .protocols = {{"DNS", "53", Transport::both},
                    {"Multicast DNS", "5353", Transport::udp},
                    {"LLMNR", "5355", Transport::both}},
  };
}

AnalyzerDescription dhcp() {
  return {
      .name = "dhcp",
      .id = "F8EB6DB7-2D53-49AF-AE5E-76E0E8E6E3C2",
      .title = "DHCP",
      .description = "Shows which machine was lent which address, by whom and for how long.",
      .version = "2.1",
      .options = {resolveVendors()},
      .protocols = {{"DHCP", "67,68", Transport::udp}, {"DHCPv6", "546,547", Transport::udp}},
  };
}

AnalyzerDescription ntp() {
  return {
      .name = "ntp",
      .id = "132BB5C8-E476-4356-8A06-285DF93CF8C9",
      .title = "NTP",
      .description = "Works out offset and delay between a clock and its server.",
      .version = "1.6",
      .protocols = {{"NTP", "123", Transport::udp}, {"NTS key exchange", "4460", Transport::tcp}},
  };
}

AnalyzerDescription snmp() {
  return {
      .name = "snmp",
      .id = "E4EAE85E-785C-4B1C-BD6B-3D92EB7A070C",
      .title = "SNMP",
      .description = "Names the objects that a manager reads and sets, and explains traps.",
      .version = "2.2",
      .options = {keepCredentialsPrivate(),
                  {.name = "object_names", .label = "Show objects by name"}},
      .protocols = {{"SNMP", "161", Transport::udp}, {"SNMP traps", "162", Transport::udp}},
  };
}

AnalyzerDescription syslog() {
  return {
      .name = "syslog",
      .id = "8E716E56-F3A8-4D98-AD68-533E96BECE25",
      .title = "Syslog",
      .description = "Sorts log messages by machine, program and severity.",
      .protocols = {{"Syslog", "514", Transport::udp}, {"Syslog over TLS", "6514", Transport::tcp}},
      .preferences = Preferences::settings,
  };
}

AnalyzerDescription ldap() {
  return {
      .name = "ldap",
      .id = "30BE6330-59C9-4445-9DFD-C27F3A9BDF4E",
      .title = "LDAP",
      .description = "Shows searches of a directory with their filters, and what they found.",
      .version = "1.9",
      .options = {keepCredentialsPrivate()},
      .protocols = {{"LDAP", "389", Transport::both}, {"Global catalog", "3268", Transport::tcp}},
  };
}

AnalyzerDescription kerberos() {
  return {
      .name = "kerberos",
      .id = "3C403CF1-AED7-4EEA-9D34-7A115B688A50",
      .title = "Kerberos",
      .description = "Follows a ticket from the first request to the service that accepts it.",
      .version = "1.2",
      .options = {keepCredentialsPrivate()},
      .protocols = {{"Kerberos", "88", Transport::both},
                    {"Password change", "464", Transport::both}},
  };
}

AnalyzerDescription bgp() {
  return {
      .name = "bgp",
      .id = "8FCB0DB1-5AF7-48B2-BDEA-79077DB008EE",
      .title = "BGP",
      .description =
          "Lists the routes that neighbours announce and withdraw. Its port is the same "
          "everywhere.",
      .version = "2.8",
      .options = {{.name = "four_byte_numbers", .label = "Show long system numbers with a dot"}},
      .protocols = {{"BGP", "179", Transport::tcp}},
      .preferences = Preferences::settingsAndVetoes,
  };
}

}  // namespace

std::vector<AnalyzerDescription> networkServiceAnalyzers() {
  return {dns(), dhcp(), ntp(), snmp(), syslog(), ldap(), kerberos(), bgp()};
}

}  // namespace zorvantine
