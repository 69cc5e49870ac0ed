// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerPreferences.hpp"

#include "QEVDependencies/QEVError.hpp"
#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVModels/PortsValidator.hpp"
#include "QEVModels/QEVPlugInsController.hpp"
#include "QEVModels/QEVPortsController.hpp"
#include "analyzers/AnalyzerDescription.hpp"
#include "analyzers/LoadAnalyzers.hpp"
#include "foundation/NotificationCenter.hpp"
#include "foundation/UserDefaults.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace zorvantine;
using foundation::UserDefaults;
using QEVDependencies::kQEVSourceProtocols;
using QEVDependencies::QEVError;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolProperty;
using QEVDependencies::QEVProtocolKonstants;
using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

// A slip in a table would send two analyzers to one key, or show a port that the editor would
// change.
TEST(HostAnalyzers, DescriptionsAreWellFormedAndDistinct) {
  const auto analyzers = sampleAnalyzers();
  ASSERT_GE(analyzers.size(), 24U);
  std::set<std::string> ids;
  std::set<std::string> titles;
  std::set<std::string> keys;
  for (const AnalyzerDescription& analyzer : analyzers) {
    SCOPED_TRACE(analyzer.title);
    EXPECT_TRUE(foundation::UUID::parse(analyzer.id));
    EXPECT_TRUE(ids.insert(analyzer.id).second);
    EXPECT_TRUE(titles.insert(analyzer.title).second);
    EXPECT_THAT(analyzer.description, EndsWith("."));
    const auto config = configOf(analyzer);
    const auto isNew = [&](const std::string& key) {
      EXPECT_THAT(key, StartsWith("com_velloquin_qev_"));
      EXPECT_TRUE(keys.insert(key).second) << key;
    };
    for (const auto& toggle : config.toggles) isNew(toggle.defaultsKey);
    if (config.color) isNew(config.color->colorKey);
    if (config.color) isNew(config.color->usesColorKey);
    if (!config.ports) continue;
    isNew(config.ports->networkProtocolKey);
    for (const auto& protocol : config.ports->defaultPorts) {
      EXPECT_EQ(QEVModels::validatedPorts(protocol->protocolPorts.get()),
                (QEVModels::PortValidationResult{.ports = protocol->protocolPorts.get(),
                                                 .corrections = {}}));
      EXPECT_NE(protocol->sourceProtocol.get(), kQEVSourceProtocols::none);
    }
  }
}

TEST(LoadAnalyzers, AnalyzersAreRegisteredInTheOrderOfTheTable) {
  const auto store = UserDefaults::inMemory();
  auto& registry = QEVModels::QEVPlugInsController::sharedManager();
  loadAnalyzers(std::nullopt, *store);
  std::vector<std::string> loaded;
  for (const auto& plugIn : registry.plugInStructs()) loaded.push_back(plugIn.plugInTitle);
  std::vector<std::string> expected;
  for (const auto& analyzer : sampleAnalyzers()) expected.push_back(analyzer.title);
  EXPECT_EQ(loaded, expected);
  const std::vector plugIns(registry.plugInStructs());
  for (const auto& plugIn : plugIns) registry.unregisterPlugIn(plugIn.id);
}

class RunningAnalyzerTest : public testing::Test {
protected:
  static AnalyzerDescription description(Preferences preferences = Preferences::settingsAndPorts) {
    return {.name = "sample",
            .id = "",
            .title = "Sample",
            .description = "",
            .protocols = {{"One", "1", Transport::tcp}, {"Two", "2,22", Transport::udp}},
            .preferences = preferences};
  }

  // What the user's change does to the list: the controller, the store, the notifications.
  static std::shared_ptr<QEVNetworkProtocol> record(const std::string& name,
                                                    const std::string& ports) {
    auto record = std::make_shared<QEVNetworkProtocol>(foundation::UUID::random(), name, ports,
                                                       kQEVSourceProtocols::tcp, std::nullopt,
                                                       std::nullopt, std::nullopt);
    record->setPortController(QEVModels::QEVPortsController::sharedPortsController());
    return record;
  }

  static std::vector<std::string> portsOf(const RunningAnalyzer& analyzer) {
    std::vector<std::string> ports;
    for (const auto& protocol : analyzer.protocols())
      ports.push_back(protocol->protocolPorts.get());
    return ports;
  }

  static void post(QEVProtocolKonstants name) {
    foundation::NotificationCenter::defaultCenter().post(rawValue(name));
  }

  std::unique_ptr<UserDefaults> store = UserDefaults::inMemory();
};

TEST_F(RunningAnalyzerTest, ReplacedRecordIsWatched) {
  AnalyzerPortsPreferences preferences(description(), *store);
  const auto current = record("One", "1");
  current->protocolPorts = "1,11";
  preferences.replaceProtoocol(record("One", "1"), current,
                               QEVNetworkProtocolProperty::protocolPorts);
  EXPECT_THAT(portsOf(*preferences.running()), ElementsAre("1,11", "2,22"));
  // What is being typed is not yet watched.
  current->protocolPorts = "1,11,1";
  EXPECT_THAT(portsOf(*preferences.running()), ElementsAre("1,11", "2,22"));
  preferences.setDefaultSettings(true);
  EXPECT_THAT(portsOf(*preferences.running()), ElementsAre("1", "2,22"));
}

TEST_F(RunningAnalyzerTest, ListIsReadAgainWhenItIsNotifiedOfAChange) {
  for (const auto name :
       {QEVProtocolKonstants::protocolListDidChange, QEVProtocolKonstants::portsDidChange}) {
    const AnalyzerPreferences preferences(description(Preferences::settings), *store);
    const std::string ports = std::string(rawValue(name));
    QEVModels::AnalyzerPortsStore("com_velloquin_qev_sample_protocols", *store)
        .encode({record(ports, ports)});
    post(name);
    EXPECT_THAT(portsOf(*preferences.running()), ElementsAre(ports));
    store->removeObject("com_velloquin_qev_sample_protocols");
    post(name);
    EXPECT_THAT(portsOf(*preferences.running()), ElementsAre("1", "2,22"));
  }
}

TEST_F(RunningAnalyzerTest, AnalyzerWithVetoKeepsItsPorts) {
  AnalyzerPortsPreferences preferences(description(Preferences::settingsAndVetoes), *store);
  const auto change = [&](const std::string& ports, QEVNetworkProtocolProperty property) {
    preferences.replaceProtoocol(record("One", "1"), record("One", ports), property);
  };
  EXPECT_THROW(change("7", QEVNetworkProtocolProperty::protocolPorts), QEVError);
  EXPECT_THAT(portsOf(*preferences.running()), ElementsAre("1", "2,22"));
  EXPECT_NO_THROW(change("1", QEVNetworkProtocolProperty::protocolPorts));
  EXPECT_NO_THROW(change("1", QEVNetworkProtocolProperty::protocolName));
  EXPECT_THROW(change("7", QEVNetworkProtocolProperty::sourceProtocol), QEVError)
      << "whichever member changed";
}

}  // namespace
