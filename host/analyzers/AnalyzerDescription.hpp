// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingsCatalogue.hpp"

#include <cstddef>
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

// An option of an analyzer that is on or off.
struct OptionDescription {
  // The option's part of its key: "checksums" of "com_velloquin_qev_tcp_checksums".
  std::string name;
  std::string label;
  bool isOnByDefault = false;
};

// What an analyzer's preferences object can do.
enum class Preferences {
  none,               // the analyzer has no preferences object
  settings,           // has settings; hears of changed ports by notifications only
  settingsAndPorts,   // is also told of each changed port
  settingsAndVetoes,  // also refuses other ports than those of its own protocol
};

// Controls that an analyzer has below its options. A name in place of a view: the command line
// links the tables of analyzers, and no views.
enum class ExtraContent { none, keyLogField };

// The key that a keyLogField stores its file under.
inline constexpr const char* kKeyLogKey = "com_velloquin_qev_tls_key_log";

// One analyzer of the host, an entry of a table.
struct AnalyzerDescription {
  // Its part of every key: "dns" of "com_velloquin_qev_dns_protocols".
  std::string name;
  // Never changes, because selections and saved windows refer to it.
  std::string id;
  std::string title;
  std::string description;
  std::string version = "1.0";
  bool isColored = true;
  std::vector<OptionDescription> options{};
  std::vector<ProtocolDescription> protocols{};
  ExtraContent extraContent = ExtraContent::none;
  Preferences preferences = Preferences::settingsAndPorts;

  std::string key(std::string_view ending) const {
    return "com_velloquin_qev_" + name + '_' + std::string(ending);
  }
};

// The host's analyzers, from the link layer upwards.
std::vector<AnalyzerDescription> sampleAnalyzers();

// The settings that an analyzer of this description has. Each call makes new factory records.
QEVSettings::AnalyzerSettings settingsOf(const AnalyzerDescription& analyzer);

// A synthetic analyzer. The same number always gives the same one.
AnalyzerDescription syntheticAnalyzer(std::size_t number);

// Options that several analyzers have, with the same wording.
OptionDescription computeChecksums(bool isOnByDefault = false);
OptionDescription resolveAddresses();
OptionDescription resolveVendors();
OptionDescription keepCredentialsPrivate();

}  // namespace zorvantine
