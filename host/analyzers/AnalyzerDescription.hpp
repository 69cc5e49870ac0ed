#pragma once

#include "viewkit/View.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

enum class Transport { none, tcp, udp, both };

// A protocol that an analyzer recognises by its ports.
struct ProtocolDescription {
  std::string name;
  std::string ports;
  Transport transport = Transport::tcp;
};

// Something that an analyzer can be told to do or not.
struct OptionDescription {
  // The option's part of its key: "checksums" of "com_velloquin_qev_tcp_checksums".
  std::string name;
  std::string label;
  bool isOnByDefault = false;
};

// What an analyzer's preferences object can do.
enum class Preferences {
  none,               // there is no such object
  settings,           // it has settings, and learns of changed ports by the notifications alone
  settingsAndPorts,   // it is told of each changed port too
  settingsAndVetoes,  // the same, and it refuses to give up its own protocol's ports
};

// One analyzer of the host, as a table tells it.
struct AnalyzerDescription {
  // Its part of every key: "dns" of "com_velloquin_qev_dns_protocols".
  std::string name;
  // Fixed for ever: selections and saved windows refer to it.
  std::string id;
  std::string title;
  std::string description;
  std::string version = "1.0";
  bool isColored = true;
  std::vector<OptionDescription> options{};
  std::vector<ProtocolDescription> protocols{};
  // Controls of its own, besides its options.
  std::function<viewkit::View()> extraContent{};
  Preferences preferences = Preferences::settingsAndPorts;

  std::string key(std::string_view ending) const {
    return "com_velloquin_qev_" + name + '_' + std::string(ending);
  }
};

// The analyzers that the host ships, from the wire upwards.
std::vector<AnalyzerDescription> sampleAnalyzers();

// One of any number of made-up analyzers, the same one each time for the same number.
AnalyzerDescription syntheticAnalyzer(std::size_t number);

// The options that several analyzers have, worded alike.
OptionDescription computeChecksums(bool isOnByDefault = false);
OptionDescription resolveAddresses();
OptionDescription resolveVendors();
OptionDescription keepCredentialsPrivate();

}  // namespace zorvantine
