// SPDX-License-Identifier: MIT
#include "services/MachineInterfaces.hpp"

#include <gmock/gmock.h>
#include <net/if.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>

namespace {

using QEVCoreComponents::NetworkInterface;
using ::testing::IsSupersetOf;

// The kernel's own list, asked for in another way.
std::set<std::string> namesOfTheSystem() {
  const std::unique_ptr<struct if_nameindex[], void (*)(struct if_nameindex*)> list(
      ::if_nameindex(), ::if_freenameindex);
  std::set<std::string> names;
  for (const struct if_nameindex* each = list.get(); each != nullptr && each->if_index != 0;
       ++each) {
    names.insert(each->if_name);
  }
  return names;
}

TEST(MachineInterfaces, EachInterfaceOfTheSystemIsListedOnce) {
  const auto interfaces = zorvantine::MachineInterfaces().all();
  std::set<std::string> names;
  for (const NetworkInterface& each : interfaces) {
    EXPECT_TRUE(names.insert(each.name).second) << each.name;
  }
  EXPECT_THAT(namesOfTheSystem(), IsSupersetOf(names));

  const auto loopback = std::ranges::find(interfaces, "lo", &NetworkInterface::name);
  if (loopback == interfaces.end()) GTEST_SKIP() << "there is no loopback interface here";
  if (!loopback->isUp) GTEST_SKIP() << "the loopback interface is down";
  EXPECT_THAT(loopback->addresses, ::testing::Contains("127.0.0.1"));
}

}  // namespace
