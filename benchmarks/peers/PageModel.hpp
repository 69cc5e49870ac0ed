// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/AnalyzerPortsSpec.hpp"
#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// What the page shows, without a toolkit. The peers differ in their views only.
namespace peers {

struct Option {
  std::string key;
  std::string label;
  std::string icon;  // the name of a drawing
  bool fallback;     // the value while nothing is stored

  bool isOn(const QEVSettings::PreferencesStore& store) const {
    return store.find(key) ? store.boolForKey(key) : fallback;
  }
};

struct Details {
  std::string title;
  std::string subtitle;
  std::vector<Option> options;
  std::optional<QEVDependencies::AnalyzerPortsSpec> ports;
};

Details detailsOf(const QEVDependencies::QEVPlugInStructure& analyzer);

// The number of the analyzer that the store selects, within the number of analyzers.
std::size_t storedSelection(const QEVSettings::PreferencesStore& store, std::size_t count);
void storeSelection(std::size_t row, QEVSettings::PreferencesStore& store);

// In the order of the raw values.
const std::vector<std::string>& transportNames();

// The protocols of one analyzer, which the user edits. Each change is stored, except for ports that
// are still being typed.
class StoredPorts {
public:
  // The store outlives the ports.
  StoredPorts(QEVDependencies::AnalyzerPortsSpec spec, QEVSettings::PreferencesStore& store);

  const std::vector<std::string>& names() const { return spec_.defaultProtocolNames; }
  std::size_t count() const { return protocols_.size(); }
  const std::string& ports(std::size_t row) const { return protocols_[row]->protocolPorts.get(); }
  // The place of the name in `names`, and of the transport in `transportNames`.
  std::size_t name(std::size_t row) const;
  std::size_t transport(std::size_t row) const;

  void chooseName(std::size_t row, std::size_t name);
  void chooseTransport(std::size_t row, std::size_t transport);
  void typePorts(std::size_t row, const std::string& text);
  // Stores the ports, unless none of them is valid.
  void endTyping(std::size_t row);
  void reset();

private:
  void show(const QEVDependencies::QEVNetworkProtocolList& protocols);
  void save() const { stored_.encode(protocols_); }

  QEVDependencies::AnalyzerPortsSpec spec_;
  QEVModels::AnalyzerPortsStore stored_;
  QEVDependencies::QEVNetworkProtocolList protocols_;
};

}  // namespace peers
