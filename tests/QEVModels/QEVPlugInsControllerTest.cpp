// SPDX-License-Identifier: MIT
#include "QEVModels/QEVPlugInsController.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace QEVModels {
namespace {

using QEVDependencies::QEVPlugInStructure;
using ::testing::ElementsAre;

std::vector<std::string> titles() {
  std::vector<std::string> result;
  for (const auto& plugIn : QEVPlugInsController::sharedManager().plugInStructs()) {
    result.push_back(plugIn.plugInTitle);
  }
  return result;
}

QEVPlugInStructure plugIn(const foundation::UUID& id, std::string title) {
  QEVPlugInStructure result;
  result.id = id;
  result.plugInTitle = std::move(title);
  return result;
}

TEST(QEVPlugInsControllerTest, ListsPlugInsInTheOrderOfTheirRegistration) {
  auto& manager = QEVPlugInsController::sharedManager();
  const auto dns = foundation::UUID::random();
  const auto arp = foundation::UUID::random();
  manager.registerPlugIn(plugIn(dns, "DNS"));
  manager.registerPlugIn(plugIn(arp, "ARP"));
  manager.registerPlugIn(plugIn(dns, "DNS 2"));
  EXPECT_THAT(titles(), ElementsAre("DNS 2", "ARP"));
  manager.unregisterPlugIn(manager.plugInStructs().front().id);
  EXPECT_THAT(titles(), ElementsAre("ARP"));
  manager.registerPlugIn(plugIn(dns, "DNS"));
  EXPECT_THAT(titles(), ElementsAre("ARP", "DNS"));
  manager.unregisterPlugIn(dns);
  manager.unregisterPlugIn(arp);
  EXPECT_THAT(titles(), ElementsAre());
}

TEST(QEVPlugInsControllerTest, OwnsThePreferencesObjectUntilThePlugInIsUnloadedOrReplaced) {
  struct Preferences final : QEVDependencies::QEVPreferencesObject {};
  auto& manager = QEVPlugInsController::sharedManager();
  QEVPlugInStructure dns = plugIn(foundation::UUID::random(), "DNS");
  const auto load = [&] {
    const auto preferences = std::make_shared<Preferences>();
    dns.plugInPreferencesInstance = preferences;
    manager.registerPlugIn(dns);
    return std::weak_ptr<Preferences>(preferences);
  };
  const auto first = load();
  const auto snapshot = manager.snapshot();
  EXPECT_FALSE(first.expired());
  const auto second = load();
  EXPECT_TRUE(first.expired());
  EXPECT_FALSE(second.expired());
  manager.unregisterPlugIn(dns.id);
  EXPECT_TRUE(second.expired());
  EXPECT_EQ(snapshot->front().plugInPreferencesInstance.lock(), nullptr);
}

TEST(QEVPlugInsControllerTest, SnapshotNeverChangesAndIsSharedUntilTheNextChange) {
  auto& manager = QEVPlugInsController::sharedManager();
  const auto dns = foundation::UUID::random();
  const auto arp = foundation::UUID::random();
  manager.registerPlugIn(plugIn(dns, "DNS"));
  const auto first = manager.snapshot();
  EXPECT_EQ(manager.snapshot(), first);
  EXPECT_EQ(&manager.plugInStructs(), first.get());

  manager.registerPlugIn(plugIn(dns, "DNS 2"));
  manager.registerPlugIn(plugIn(arp, "ARP"));
  const auto second = manager.snapshot();
  manager.unregisterPlugIn(dns);
  ASSERT_EQ(first->size(), 1U);
  EXPECT_EQ(first->front().plugInTitle, "DNS");
  ASSERT_EQ(second->size(), 2U);
  EXPECT_EQ(second->front().plugInTitle, "DNS 2");
  EXPECT_THAT(titles(), ElementsAre("ARP"));
  manager.unregisterPlugIn(arp);
}

}  // namespace
}  // namespace QEVModels
