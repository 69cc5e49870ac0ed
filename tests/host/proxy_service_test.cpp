// SPDX-License-Identifier: MIT
#include "services/ProxyService.hpp"

#include "foundation/UserDefaults.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using foundation::UserDefaults;
using QEVDependencies::ProxyAddress;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;
using zorvantine::ProxyService;

TEST(ProxyService, SettingsAreKeptInTheStoreAlone) {
  const auto store = UserDefaults::inMemory();
  ProxyService service(*store);
  EXPECT_FALSE(service.isEnabled());
  EXPECT_EQ(service.listeningAddress().text(), "localhost:8080");
  EXPECT_EQ(service.upstream(), std::nullopt);
  EXPECT_THAT(store->dictionaryRepresentation(), IsEmpty());

  service.setEnabled(true);
  service.setInterceptsTLS(true);
  service.setListeningAddress({.host = "::1", .port = 3128});
  service.setUpstream(ProxyAddress{.host = "proxy.example", .port = 8000});
  const ProxyService another(*store);
  EXPECT_TRUE(another.isEnabled());
  EXPECT_TRUE(another.interceptsTLS());
  EXPECT_EQ(another.listeningAddress(), (ProxyAddress{.host = "::1", .port = 3128}));
  EXPECT_EQ(another.upstream(), (ProxyAddress{.host = "proxy.example", .port = 8000}));
  for (const auto& [key, value] : store->dictionaryRepresentation()) {
    EXPECT_TRUE(key.starts_with(ProxyService::kKeyPrefix)) << key;
  }
  service.setUpstream(std::nullopt);
  EXPECT_EQ(another.upstream(), std::nullopt);
}

TEST(ProxyService, UnreadableValueCountsAsTheInitialOne) {
  const auto store = UserDefaults::inMemory();
  const ProxyService service(*store);
  for (const char* text :
       {"", "8080", "localhost:", ":80", "localhost:0", "localhost:65536", "two words:80"}) {
    store->setObject(text, "com_velloquin_zorvantine_proxy_listeningAddress");
    store->setObject(text, "com_velloquin_zorvantine_proxy_upstream");
    EXPECT_EQ(service.listeningAddress().text(), "localhost:8080") << text;
    EXPECT_EQ(service.upstream(), std::nullopt) << text;
  }
}

TEST(ProxyService, ProblemSaysWhyItDoesNotRun) {
  const auto store = UserDefaults::inMemory();
  ProxyService service(*store);
  service.setInterceptsTLS(true);
  EXPECT_EQ(service.problem(), std::nullopt);
  service.setEnabled(true);
  EXPECT_THAT(service.problem(), Optional(Not(IsEmpty())));
  store->setObject("/etc/certificate.pem", "com_velloquin_zorvantine_proxy_certificatePath");
  EXPECT_EQ(service.problem(), std::nullopt);
  service.setUpstream(service.listeningAddress());
  EXPECT_THAT(service.problem(), Optional(Not(IsEmpty())));
}

TEST(ProxyService, OwnChangeIsAnnouncedBeforeItHappens) {
  const auto store = UserDefaults::inMemory();
  ProxyService service(*store);
  std::vector<bool> enabledWhenTold;
  const auto subscription =
      service.objectWillChange().subscribe([&] { enabledWhenTold.push_back(service.isEnabled()); });
  service.setEnabled(true);
  ASSERT_THAT(enabledWhenTold, Not(IsEmpty()));
  EXPECT_FALSE(enabledWhenTold.front());
  enabledWhenTold.clear();
  // Another process's change is told too.
  store->setBool(false, "com_velloquin_zorvantine_proxy_enabled");
  EXPECT_THAT(enabledWhenTold, Not(IsEmpty()));
  enabledWhenTold.clear();
  store->setBool(false, "some_other_key");
  EXPECT_THAT(enabledWhenTold, IsEmpty());
}

}  // namespace
