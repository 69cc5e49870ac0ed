// SPDX-License-Identifier: MIT
#include "QEVModels/AnalyzerPortsStore.hpp"

#include "QEVDependencies/QEVPortsPreferencesProtocol.hpp"
#include "QEVDependencies/kQEVSourceProtocols.hpp"
#include "QEVModels/QEVPortsController.hpp"
#include "foundation/UserDefaults.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QEVModels {
namespace {

using foundation::UUID;
using QEVDependencies::kQEVSourceProtocols;
using QEVDependencies::QEVNetworkProtocol;
using QEVDependencies::QEVNetworkProtocolList;
using QEVSettings::PreferenceValue;
using ::testing::ElementsAre;
using ::testing::SizeIs;

constexpr const char* kKey = "com_velloquin_qev_dns_protocols";
constexpr std::string_view kId = "3F2504E0-4F89-41D3-9A0C-0305E82C3301";

PreferenceValue bytes(std::string_view text) {
  return PreferenceValue::Bytes(text.begin(), text.end());
}

std::shared_ptr<QEVNetworkProtocol> record(std::string name, std::string ports,
                                           std::int64_t source) {
  return std::make_shared<QEVNetworkProtocol>(*UUID::parse(kId), std::move(name), std::move(ports),
                                              source, std::nullopt, "EN10MB", 0);
}

std::string described(const QEVNetworkProtocol& protocol) {
  return protocol.protocolName.get() + '|' + protocol.protocolPorts.get() + '|' +
         std::to_string(protocol.sourceProtocol.get());
}

class AnalyzerPortsStoreTest : public ::testing::Test {
protected:
  std::string stored() const {
    const auto value = defaults->objectForKey(kKey);
    const auto* bytes = value ? value->asData() : nullptr;
    return bytes ? std::string(bytes->begin(), bytes->end()) : "nothing";
  }

  // The records of a stored text; the fallback has one named "fallback".
  std::vector<std::string> decoded(const PreferenceValue& value) {
    defaults->setObject(value, kKey);
    std::vector<std::string> result;
    for (const auto& each : store.decode({record("fallback", "1", 0)}))
      result.push_back(described(*each));
    EXPECT_EQ(defaults->objectForKey(kKey), value);
    return result;
  }

  std::unique_ptr<foundation::UserDefaults> defaults = foundation::UserDefaults::inMemory();
  AnalyzerPortsStore store{kKey, *defaults};
};

TEST_F(AnalyzerPortsStoreTest, StoresAListAsAnArrayOfObjects) {
  const QEVNetworkProtocolList fallback{record("DNS", "53", kQEVSourceProtocols::both)};
  EXPECT_EQ(store.decode(fallback), fallback);
  EXPECT_EQ(stored(), "nothing");

  store.encode({fallback.front(), record("mDNS “lan”", "", kQEVSourceProtocols::udp)});
  EXPECT_EQ(
      stored(),
      R"([{"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","protocolName":"DNS","protocolPorts":"53",)"
      R"("sourceProtocol":3,"linktype":"EN10MB","size":0},)"
      R"({"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","protocolName":"mDNS “lan”","protocolPorts":"",)"
      R"("sourceProtocol":2,"linktype":"EN10MB","size":0}])");

  const auto list = store.decode({});
  ASSERT_THAT(list, SizeIs(2));
  EXPECT_EQ(list[0]->id(), *UUID::parse(kId));
  EXPECT_EQ(list[0]->linktype(), "EN10MB");
  EXPECT_EQ(list[0]->ethertype(), std::nullopt);
  EXPECT_EQ(list[0]->size(), 0);
  EXPECT_EQ(list[0]->lastRegisteredPorts(), "53");
  EXPECT_EQ(described(*list[1]), "mDNS “lan”||2");
}

TEST_F(AnalyzerPortsStoreTest, UnchangedMembersAreWrittenAsTheyWereRead) {
  const std::string before =
      R"([{"note":{"a":[1e400]},"protocolName":"\u0044NS","id":"3f2504e0-4f89-41d3-9a0c-0305e82c3301",)"
      R"("sourceProtocol":3.0,"protocolPorts":"53","size":"large","ethertype":null},)"
      R"({"protocolName":"HTTP","protocolPorts":"80","sourceProtocol":"tcp"}])";
  defaults->setObject(bytes(before), kKey);
  auto list = store.decode({});
  ASSERT_THAT(list, SizeIs(2));
  // As the editor does: it shows a copy, and writes all copies after a change to one of them.
  for (auto& each : list) each = *each->copied();
  list[0]->protocolPorts = "53,5353";
  list[1]->sourceProtocol = kQEVSourceProtocols::tcp;
  store.encode(list);
  EXPECT_EQ(
      stored(),
      R"([{"note":{"a":[1e400]},"protocolName":"\u0044NS","id":"3f2504e0-4f89-41d3-9a0c-0305e82c3301",)"
      R"("sourceProtocol":3.0,"protocolPorts":"53,5353","size":"large","ethertype":null},)"
      R"({"protocolName":"HTTP","protocolPorts":"80","sourceProtocol":1,"id":")" +
          list[1]->id().text() + R"("}])");
}

TEST_F(AnalyzerPortsStoreTest, ReadsOtherTypesThatHaveAMeaning) {
  const std::vector<std::pair<std::string_view, std::string>> records{
      {R"({"protocolName":"DNS"})", "DNS||0"},
      {R"({"protocolName":"","protocolPorts":"80, x"})", "|80, x|0"},
      {R"({"protocolName":"DNS","protocolPorts":null,"id":7,"size":[],"linktype":{}})", "DNS||0"},
      {R"({"protocolName":"DNS","protocolPorts":[53,"54-55"],"sourceProtocol":"UDP"})",
       "DNS|53,54-55|0"},
      {R"({"protocolName":"DNS","protocolPorts":53,"sourceProtocol":1e400})", "DNS|53|0"},
      {R"({"protocolName":"DNS","protocolPorts":"53","sourceProtocol":-9})", "DNS|53|-9"},
      {R"({"protocolName":"a","protocolName":"b","protocolPorts":"1"})", "b|1|0"},
  };
  for (const auto& [text, expected] : records) {
    SCOPED_TRACE(text);
    EXPECT_THAT(decoded(bytes("[" + std::string(text) + "]")), ElementsAre(expected));
  }
  EXPECT_THAT(decoded(bytes("[]")), ElementsAre());
}

TEST_F(AnalyzerPortsStoreTest, ValueThatIsNoListGivesTheDefault) {
  const std::string good = R"({"protocolName":"DNS","protocolPorts":"53"})";
  const std::vector<PreferenceValue> values{
      PreferenceValue("[" + good + "]"),
      PreferenceValue(5),
      PreferenceValue::Array{good},
      bytes(""),
      bytes("[" + good),
      bytes(good),
      bytes("null"),
      bytes("[5]"),
      bytes(R"([{"protocolName":7,"protocolPorts":"53"}])"),
      bytes(R"([{"protocolName":"DNS","protocolPorts":{"a":1}}])"),
      bytes(R"([{"protocolName":"DNS","protocolPorts":[53.5]}])"),
      bytes("[{\"protocolName\":\"\xFF\"}]"),
      bytes(std::string(10'000, '[') + std::string(10'000, ']'))};
  for (const PreferenceValue& value : values) {
    EXPECT_THAT(decoded(value), ElementsAre("fallback|1|0"));
  }
}

TEST_F(AnalyzerPortsStoreTest, UnreadableElementsAreSkippedAndStoredAgainWhereTheyStood) {
  constexpr const char* kBroken = R"({"protocolName":7,"note":1.50})";
  const auto good = [](const char* name) {
    return R"({"id":")" + std::string(kId) + R"(","protocolName":")" + name +
           R"(","protocolPorts":"1","sourceProtocol":0})";
  };
  const std::string before =
      std::string("[") + kBroken + "," + good("A") + ",5," + good("B") + ",{}]";
  EXPECT_THAT(decoded(bytes(before)), ElementsAre("A|1|0", "B|1|0"));

  auto list = store.decode({});
  list[1]->protocolName = "C";
  store.encode(list);
  EXPECT_EQ(stored(), std::string("[") + kBroken + "," + good("A") + ",5," + good("C") + ",{}]");
  list.pop_back();
  store.encode(list);
  EXPECT_EQ(stored(), std::string("[") + kBroken + "," + good("A") + ",5,{}]");
  store.encode({});
  EXPECT_EQ(stored(), std::string("[") + kBroken + ",5,{}]");
}

TEST_F(AnalyzerPortsStoreTest, PortsAreStoredInTheValidatorsFormOrAsLastRegistered) {
  struct Case {
    const char* before;
    const char* typed;
    bool reports;
    const char* stored;
  };
  for (const Case& each : {
           Case{"53", "5353, 53", false, "53,5353"},
           Case{"53", "none", false, "53"},
           Case{"53", "", false, "53"},
           Case{"53, 54", "53, 54", false, "53, 54"},
           Case{"53", "none", true, "53"},
           Case{"53", "54", true, "53"},
       }) {
    SCOPED_TRACE(each.typed);
    const auto protocol = record("DNS", each.before, 0);
    if (each.reports) protocol->setPortController(QEVPortsController::sharedPortsController());
    protocol->protocolPorts = each.typed;
    store.encode({protocol});
    EXPECT_EQ(store.decode({}).at(0)->protocolPorts.get(), each.stored);
    EXPECT_EQ(protocol->protocolPorts.get(), each.typed);
  }
}

TEST_F(AnalyzerPortsStoreTest, RefusedNameAndSourceAreNotStored) {
  const auto protocol = record("DNS", "53", kQEVSourceProtocols::udp);
  protocol->setPortController(QEVPortsController::sharedPortsController());
  protocol->protocolName = "mDNS";
  protocol->sourceProtocol = kQEVSourceProtocols::tcp;
  protocol->reportRegistered(QEVDependencies::QEVNetworkProtocolProperty::sourceProtocol);
  store.encode({protocol});
  EXPECT_EQ(described(*store.decode({}).at(0)), "DNS|53|1");
}

TEST_F(AnalyzerPortsStoreTest, TakesAHundredThousandRecords) {
  std::string text = "[";
  for (int i = 0; i < 100'000; ++i) {
    if (i > 0) text += ',';
    text += R"({"protocolName":"P","protocolPorts":")" + std::to_string(i % 65536) + R"(","x":1})";
  }
  defaults->setObject(bytes(text + ']'), kKey);
  const auto list = store.decode({});
  ASSERT_THAT(list, SizeIs(100'000));
  store.encode(list);
  EXPECT_THAT(store.decode({}), SizeIs(100'000));
}

// The record that a plug-in's analyzer goes by.
class RegisteringPreferences final : public QEVDependencies::QEVPortsPreferencesProtocol {
public:
  void replaceProtoocol(const std::shared_ptr<QEVNetworkProtocol>& /*old*/,
                        const std::shared_ptr<QEVNetworkProtocol>& current,
                        QEVDependencies::QEVNetworkProtocolProperty changed) override {
    if (refuses) throw QEVDependencies::QEVError::analyzerRefusedChange;
    current->reportRegistered(changed);
  }
  void setDefaultSettings(bool /*reset*/) override {}

  bool refuses = false;
};

TEST(QEVPortsControllerTest, OnlyASuccessfulRegistrationIsRemembered) {
  using enum QEVDependencies::QEVNetworkProtocolProperty;
  RegisteringPreferences plugIn;
  const auto protocol = record("DNS", "53", kQEVSourceProtocols::udp);
  protocol->protocolPorts = "54";
  plugIn.replaceProtoocol(record("", "", 0), protocol, protocolPorts);
  EXPECT_EQ(protocol->lastRegisteredPorts(), "53") << "no controller yet";

  protocol->setPortController(QEVPortsController::sharedPortsController());
  plugIn.replaceProtoocol(record("", "", 0), protocol, protocolPorts);
  EXPECT_EQ(protocol->lastRegisteredPorts(), "54");

  plugIn.refuses = true;
  protocol->protocolName = "mDNS";
  protocol->sourceProtocol = kQEVSourceProtocols::tcp;
  EXPECT_THROW(plugIn.replaceProtoocol(record("", "", 0), protocol, protocolName),
               QEVDependencies::QEVError);
  EXPECT_EQ(protocol->lastRegisteredName(), "DNS");
  EXPECT_EQ(protocol->lastRegisteredSource(), kQEVSourceProtocols::udp);

  plugIn.refuses = false;
  plugIn.replaceProtoocol(record("", "", 0), protocol, protocolName);
  EXPECT_EQ(protocol->lastRegisteredName(), "mDNS");
  EXPECT_EQ(protocol->lastRegisteredSource(), kQEVSourceProtocols::udp)
      << "the source was not what changed";
  plugIn.replaceProtoocol(record("", "", 0), protocol, sourceProtocol);
  EXPECT_EQ(protocol->lastRegisteredSource(), kQEVSourceProtocols::tcp);
}

TEST(QEVNetworkProtocolTest, TakesStoredValuesButKeepsUncommittedText) {
  const auto protocol = record("DNS", "53", kQEVSourceProtocols::udp);
  const auto stored = record("mDNS", "5353", kQEVSourceProtocols::both);
  EXPECT_TRUE(protocol->takeOver(*stored));
  EXPECT_EQ(described(*protocol), "mDNS|5353|3");
  EXPECT_FALSE(protocol->takeOver(*stored));

  protocol->protocolPorts = "90";
  EXPECT_TRUE(protocol->takeOver(*record("LLMNR", "5355", kQEVSourceProtocols::both)));
  EXPECT_EQ(described(*protocol), "LLMNR|90|3");
  EXPECT_EQ(protocol->lastRegisteredPorts(), "5355");
}

TEST(QEVNetworkProtocolTest, CopyEqualsTheDecodedEncodedRecord) {
  for (
      const char* text : {
          R"({"note":{"a":[1.50]},"protocolName":"\u0044NS","protocolPorts":[53,54],"size":"large"})",
          R"({"id":"3f2504e0-4f89-41d3-9a0c-0305e82c3301","protocolName":"A","ethertype":"x","size":3e0})",
      }) {
    const auto json = foundation::JSON::parse(text);
    ASSERT_TRUE(json);
    const auto decoded = QEVNetworkProtocol::decoded(*json);
    ASSERT_TRUE(decoded);
    (*decoded)->protocolName = "mDNS";
    const auto copy = (*decoded)->copied();
    ASSERT_TRUE(copy);
    const auto textOf = [](const QEVNetworkProtocol& protocol) {
      foundation::JSONWriter writer;
      protocol.encode(writer);
      return writer.takeText();
    };
    EXPECT_EQ(textOf(**copy), textOf(**decoded));
    EXPECT_EQ((*copy)->lastRegisteredName(), "mDNS");
    (*copy)->protocolPorts = "1";
    EXPECT_NE((*decoded)->protocolPorts.get(), "1");
  }
  EXPECT_EQ((*record("\xFF", "1", 0)->copied())->protocolName.get(), "\uFFFD");
}

TEST(QEVNetworkProtocolTest, AnnouncesItsOwnChangesAndItsErrors) {
  const auto protocol = record("DNS", "53", kQEVSourceProtocols::udp);
  protocol->setupBinding();
  std::vector<std::string> seen;
  const auto token = protocol->objectWillChange().subscribe(
      [&] { seen.push_back(described(*protocol) + protocol->errorModel()->errorState.errorText); });
  protocol->protocolName = "mDNS";
  protocol->sourceProtocol = kQEVSourceProtocols::tcp;
  protocol->protocolPorts = "5353";
  protocol->errorModel()->objectWillChange().announce();
  protocol->errorModel()->errorState = {.errorText = "Error", .errorDetails = {}};
  EXPECT_THAT(seen, ElementsAre("DNS|53|2", "mDNS|53|2", "mDNS|53|1", "mDNS|5353|1"));
}

}  // namespace
}  // namespace QEVModels
