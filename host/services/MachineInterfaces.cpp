// SPDX-License-Identifier: MIT
#include "services/MachineInterfaces.hpp"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

namespace zorvantine {

using QEVCoreComponents::NetworkInterface;

namespace {

struct FreeList {
  void operator()(ifaddrs* list) const { ::freeifaddrs(list); }
};

// Empty for an address of another family than IP.
std::string textOf(const sockaddr* address) {
  if (address == nullptr) return {};
  std::array<char, INET6_ADDRSTRLEN> text{};
  const void* bytes = nullptr;
  if (address->sa_family == AF_INET)
    bytes = &reinterpret_cast<const sockaddr_in*>(address)->sin_addr;
  if (address->sa_family == AF_INET6)
    bytes = &reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr;
  if (bytes == nullptr) return {};
  return ::inet_ntop(address->sa_family, bytes, text.data(), text.size()) != nullptr ? text.data()
                                                                                     : "";
}

}  // namespace

std::vector<NetworkInterface> MachineInterfaces::all() const {
  ifaddrs* first = nullptr;
  if (::getifaddrs(&first) != 0) return {};
  const std::unique_ptr<ifaddrs, FreeList> list(first);
  std::vector<NetworkInterface> interfaces;
  // The list names an interface once for each of its addresses.
  for (const ifaddrs* entry = list.get(); entry != nullptr; entry = entry->ifa_next) {
    const std::string name = entry->ifa_name;
    auto found = std::ranges::find(interfaces, name, &NetworkInterface::name);
    if (found == interfaces.end()) {
      found = interfaces.insert(
          found, {.name = name, .addresses = {}, .isUp = (entry->ifa_flags & IFF_UP) != 0});
    }
    if (auto address = textOf(entry->ifa_addr); !address.empty())
      found->addresses.push_back(std::move(address));
  }
  return interfaces;
}

}  // namespace zorvantine
