// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/store/Child.hpp"

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

namespace QEVSettings {

// Another process that has the store's file open. Each call returns when the other process has done
// what it asks. Make it before this process opens a store: it is forked.
class SecondProcess {
public:
  // `factory` is the protocol list while none is stored.
  SecondProcess(const std::filesystem::path& path,
                const QEVDependencies::QEVNetworkProtocolList& factory);
  ~SecondProcess();
  SecondProcess(const SecondProcess&) = delete;
  SecondProcess& operator=(const SecondProcess&) = delete;

  // A Boolean, an integer, a string, or a dictionary that is a font.
  void set(const std::string& key, const PreferenceValue& value);
  void remove(const std::string& key) { ask("delete", key, ""); }
  // These change the stored list: the ports or the name of one record, a new record at the end,
  // whose id `append` returns, or the last record removed.
  void setPorts(const std::string& key, std::size_t index, const std::string& ports) {
    ask("ports " + std::to_string(index), key, ports);
  }
  void setName(const std::string& key, std::size_t index, const std::string& name) {
    ask("name " + std::to_string(index), key, name);
  }
  std::string append(const std::string& key, const std::string& name) {
    return ask("append", key, name);
  }
  void removeLast(const std::string& key) { ask("remove", key, ""); }

  // The stored value as GoogleTest prints it.
  std::string printed(const std::string& key) { return ask("print", key, ""); }

private:
  std::string ask(const std::string& verb, const std::string& key, const std::string& argument);

  std::array<int, 2> sockets_{};
  std::unique_ptr<foundation::Child> process_;
};

}  // namespace QEVSettings
