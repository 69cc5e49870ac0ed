#pragma once

#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "foundation/StoreFixture.hpp"

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

namespace QEVSettings {

// Another process over a store's file. It does one thing at a time, and each call returns when that
// is done. To be made before this process opens a store.
class SecondProcess {
public:
  // `factory` is what a protocol list holds while none is stored.
  SecondProcess(const std::filesystem::path& path,
                const QEVDependencies::QEVNetworkProtocolList& factory);
  ~SecondProcess();
  SecondProcess(const SecondProcess&) = delete;
  SecondProcess& operator=(const SecondProcess&) = delete;

  void setBool(const std::string& key, bool value) { ask("bool", key, value ? "1" : "0"); }
  void setInteger(const std::string& key, int value) { ask("integer", key, std::to_string(value)); }
  void setString(const std::string& key, const std::string& value) { ask("string", key, value); }
  // Store a list in which one record has other ports or another name, in which a record is new and
  // the last, or in which the last record is missing. `append` returns the id of the new record.
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
