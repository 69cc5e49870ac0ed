// SPDX-License-Identifier: MIT
#include "QEVSettings/LayeredPreferences.hpp"

#include "HostParts.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/preferences/HostIdentity.hpp"
#include "TestAnalyzers.hpp"
#include "foundation/Diagnostics.hpp"
#include "foundation/MainQueue.hpp"
#include "headless/Window.hpp"
#include "support/TemporaryFolder.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace QEVSettings {
namespace {

using namespace std::chrono_literals;
using foundation::MainQueue;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using viewkit::Role;
using Origin = PreferenceOrigin;

constexpr const char* kKey = "com_velloquin_qev_dns_checksums";
constexpr const char* kPortsKey = "com_velloquin_qev_dns_protocols";
// [{"protocolName":"DNS","protocolPorts":"5353","sourceProtocol":3}]
constexpr const char* kLockedPorts =
    "W3sicHJvdG9jb2xOYW1lIjoiRE5TIiwicHJvdG9jb2xQb3J0cyI6IjUzNTMiLCJzb3VyY2VQcm90b2NvbCI6M31d";
// Somebody who owns no file of the test.
constexpr unsigned kStranger = 4242;

class LayeredPreferencesTest : public testing::Test {
protected:
  LayeredPreferencesTest() {
    foundation::setDiagnosticSink([this](std::string_view line) { lines.emplace_back(line); });
  }
  ~LayeredPreferencesTest() override { foundation::setDiagnosticSink({}); }

  std::filesystem::path folder(const std::string& name) const {
    return scratch.path() / HostIdentity::current().id / name;
  }
  // Writes a file as an administrator does: completely, under its final name.
  void write(const std::string& file, const std::string& text) const {
    const auto path = folder(file);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path.parent_path() / ".new") << text;
    std::filesystem::rename(path.parent_path() / ".new", path);
  }
  LayeredPreferences::Options options() const {
    return {.configurationFolders = std::vector{scratch.path()}, .person = kStranger};
  }
  // The files are owned by whoever runs the test, which administrators' files may be only for root.
  static bool isRoot() { return ::getuid() == 0; }

  // Lets the watch be heard.
  static bool waitFor(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (!condition() && std::chrono::steady_clock::now() < end) {
      MainQueue::mainQueue().wait(20ms);
      MainQueue::mainQueue().drainAll();
    }
    return condition();
  }

  support::TemporaryFolder scratch;
  support::RecordingPreferencesStore person;
  std::vector<std::string> lines;
};

TEST_F(LayeredPreferencesTest, FirstLayerThatHasTheKeyIsInForce) {
  if (!isRoot()) GTEST_SKIP() << "only root can make administrators' files";
  auto given = options();
  const LayeredPreferences plain(person, given);
  EXPECT_EQ(plain.find(kKey), nullptr);
  EXPECT_EQ(plain.origin(kKey), Origin::standard);

  write("defaults.d/10.json", R"({"com_velloquin_qev_dns_checksums": true, "other": 1})");
  write("defaults.d/20.plist",
        "<plist version=\"1.0\"><dict><key>other</key><integer>2</integer>"
        "</dict></plist>");
  const LayeredPreferences withDefaults(person, given);
  EXPECT_EQ(withDefaults.origin(kKey), Origin::administrator);
  EXPECT_TRUE(withDefaults.boolForKey(kKey));
  EXPECT_EQ(withDefaults.integerForKey("other"), 2);

  person.setBool(false, kKey);
  EXPECT_EQ(withDefaults.origin(kKey), Origin::user);
  EXPECT_FALSE(withDefaults.boolForKey(kKey));

  given.commandLine = {{kKey, true}};
  const LayeredPreferences withCommandLine(person, given);
  EXPECT_EQ(withCommandLine.origin(kKey), Origin::commandLine);
  EXPECT_TRUE(withCommandLine.boolForKey(kKey));

  write("locks.d/lock.json", R"({"com_velloquin_qev_dns_checksums":
                                 {"type": "boolean", "value": false}})");
  LayeredPreferences locked(person, given);
  EXPECT_EQ(locked.origin(kKey), Origin::locked);
  EXPECT_FALSE(locked.boolForKey(kKey));
  person.forget();
  lines.clear();
  locked.setBool(true, kKey);
  locked.removeObject(kKey);
  EXPECT_FALSE(locked.remove(kKey));
  EXPECT_THAT(person.changes(), IsEmpty());
  EXPECT_THAT(lines, Contains(HasSubstr("managed by your organization")).Times(2));
  EXPECT_TRUE(locked.remove("other"));
}

TEST_F(LayeredPreferencesTest, FilesOfAPersonAndBrokenFilesAreLeftOutInOneLineEach) {
  write("defaults.d/1.json", R"({"a": 1})");
  write("defaults.d/2.json", "{\"a\": 2,\n \"b\": }");
  write("defaults.d/3.plist", "<plist><dict><key>a</key><integer>x</integer></dict></plist>");
  write("defaults.d/.hidden", "{}");
  if (isRoot()) {
    const LayeredPreferences layers(person, options());
    EXPECT_EQ(layers.integerForKey("a"), 1);
    ASSERT_EQ(layers.problems().size(), 2U);
    EXPECT_THAT(layers.problems()[0], testing::AllOf(HasSubstr("2.json"), HasSubstr("byte")));
    EXPECT_THAT(layers.problems()[1], testing::AllOf(HasSubstr("3.plist"), HasSubstr("line")));
    EXPECT_EQ(lines.size(), 2U);

    ASSERT_EQ(::chmod(folder("defaults.d/1.json").c_str(), 0666), 0);
    const LayeredPreferences open(person, options());
    EXPECT_EQ(open.find("a"), nullptr);
    EXPECT_THAT(open.problems(), Contains(HasSubstr("may be written by others")));
    ASSERT_EQ(::chmod(folder("defaults.d/1.json").c_str(), 0644), 0);
    ASSERT_EQ(::chown(folder("defaults.d/1.json").c_str(), kStranger, kStranger), 0);
    const LayeredPreferences foreign(person, options());
    EXPECT_EQ(foreign.find("a"), nullptr);
    EXPECT_THAT(foreign.problems(), Contains(HasSubstr("does not belong to root")));
  } else {
    auto own = options();
    own.person = ::getuid();
    const LayeredPreferences layers(person, own);
    EXPECT_EQ(layers.find("a"), nullptr);
    EXPECT_THAT(layers.problems(), Contains(HasSubstr("does not belong to root")));
  }
}

TEST_F(LayeredPreferencesTest, FolderThatIsALinkToAPlaceOfThePersonIsRefused) {
  if (!isRoot()) GTEST_SKIP() << "only root can give a folder away";
  const support::TemporaryFolder home;
  std::ofstream(home.path() / "mine.json") << R"({"a": 1})";
  ASSERT_EQ(::chown(home.path().c_str(), kStranger, kStranger), 0);
  std::filesystem::create_directories(folder("locks.d").parent_path());
  std::filesystem::create_directory_symlink(home.path(), folder("locks.d"));
  const LayeredPreferences layers(person, options());
  EXPECT_FALSE(layers.isLocked("a"));
  EXPECT_THAT(layers.problems(), ElementsAre(HasSubstr("does not belong to root")));
}

TEST_F(LayeredPreferencesTest,
       MigrationRewritesThePersonsLayerAloneAndReadsOldFormsOfAdministrators) {
  if (!isRoot()) GTEST_SKIP() << "only root can make administrators' files";
  constexpr const char* color = "com_velloquin_qev_dns_color";
  constexpr const char* other = "com_velloquin_qev_tcp_color";
  write("locks.d/1.json", R"({"com_velloquin_qev_dns_color": {"type": "data", "value": "AQID"}})");
  write("defaults.d/1.json", R"({"com_velloquin_zorvantine_prefs_schema_version": 2,
                                 "com_velloquin_qev_tcp_color": {"type": "data", "value": "AQID"}})");
  person.setObject(PreferenceValue::Bytes{4, 5, 6}, color);
  LayeredPreferences layers(person, options());
  EXPECT_EQ(layers.stringForKey(color), "AQID");
  EXPECT_EQ(layers.find(other)->type(), PreferenceValue::Type::data) << "a file of schema 2";
  QEVPreferencesMigration::migrateIfNeeded(layers);
  EXPECT_EQ(person.stringForKey(color), "BAUG");
  EXPECT_EQ(person.find(other), nullptr);
  EXPECT_EQ(person.integerForKey(kPrefsSchemaVersion.name), 2);
}

TEST_F(LayeredPreferencesTest, LargeFilesAndAThousandFoldersAreHandled) {
  if (!isRoot()) GTEST_SKIP() << "only root can make administrators' files";
  write("defaults.d/1.json", R"({"a": 1})");
  write("locks.d/1.json", "{}");
  std::filesystem::resize_file(folder("locks.d/1.json"), std::uintmax_t{100} << 20);
  auto given = options();
  for (int i = 0; i < 1000; ++i)
    given.configurationFolders->push_back(scratch.path() / std::to_string(i));
  const LayeredPreferences layers(person, given);
  EXPECT_EQ(layers.integerForKey("a"), 1);
  ASSERT_EQ(layers.problems().size(), 1U);
  EXPECT_THAT(layers.problems()[0], HasSubstr("locks.d/1.json"));
}

TEST_F(LayeredPreferencesTest, KeyThatCannotBeLockedStaysFree) {
  if (!isRoot()) GTEST_SKIP() << "only root can make administrators' files";
  write("locks.d/1.json", R"({"free": 1, "unknown": 2})");
  auto given = options();
  given.isLockable = [](std::string_view key) { return key != "free"; };
  const LayeredPreferences layers(person, given);
  EXPECT_FALSE(layers.isLocked("free"));
  EXPECT_TRUE(layers.isLocked("unknown"));
  EXPECT_THAT(layers.problems(), ElementsAre(HasSubstr("cannot be locked")));
}

TEST_F(LayeredPreferencesTest, ObserversHearOfLocksAndDefaultsThatComeAndGo) {
  if (!isRoot()) GTEST_SKIP() << "only root can make administrators' files";
  LayeredPreferences layers(person, options());
  std::vector<std::string> heard;
  const auto one = layers.observe(kKey, [&](std::string_view key) { heard.emplace_back(key); });
  int all = 0;
  const auto every = layers.observeAll([&](std::string_view) { ++all; });
  layers.setBool(true, kKey);
  EXPECT_THAT(heard, ElementsAre(kKey));

  // No folder exists so far.
  write("locks.d/1.json", R"({"com_velloquin_qev_dns_checksums": true})");
  EXPECT_TRUE(waitFor([&] { return layers.isLocked(kKey); }));
  EXPECT_EQ(heard.size(), 2U);
  write("locks.d/1.json", R"({"com_velloquin_qev_dns_checksums": false})");
  EXPECT_TRUE(waitFor([&] { return !layers.boolForKey(kKey); }));
  std::filesystem::remove_all(folder("locks.d"));
  EXPECT_TRUE(waitFor([&] { return !layers.isLocked(kKey); }));
  EXPECT_EQ(layers.origin(kKey), Origin::user);
  EXPECT_EQ(heard.size(), 4U);
  EXPECT_EQ(all, 4);
}

// A settings window over layers.
class ManagedWindowTest : public LayeredPreferencesTest {
protected:
  void SetUp() override {
    if (!isRoot()) GTEST_SKIP() << "only root can make administrators' files";
    layers_ = std::make_unique<LayeredPreferences>(person, options());
    parts_.captureModel =
        std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(*layers_, parts_.interfaces);
    changes_ = layers_->observeAll([this](std::string_view) { ++heard_; });
  }

  headless::Window& open(QEVSettingsView::Tabs tab) {
    settings = std::make_unique<headless::Window>(parts_.settingsView(tab),
                                                  viewkit::Environment{.defaultStore = *layers_});
    return *settings;
  }
  // Returns when the window has heard of the change by itself.
  void lock(const std::string& json) {
    const int before = heard_;
    write("locks.d/1.json", json);
    ASSERT_TRUE(waitFor([&] { return heard_ > before; }));
    settings->settle();
  }

private:
  HostParts parts_;
  std::unique_ptr<LayeredPreferences> layers_;
  int heard_ = 0;
  Subscription changes_;

protected:
  std::unique_ptr<headless::Window> settings;
};

TEST_F(ManagedWindowTest, LockedSwitchIsDisabledAndMarkedUntilTheLockIsGone) {
  headless::Window& window = open(QEVSettingsView::Tabs::capture);
  const auto promiscuous = [&] { return window.find(Role::toggle, "Promiscuous mode"); };
  ASSERT_TRUE(promiscuous().isEnabled());
  EXPECT_THAT(window.findAll(Role::image), IsEmpty());
  lock(R"({"com_velloquin_zorvantine_capture_promiscuous": false})");
  EXPECT_FALSE(promiscuous().isEnabled());
  EXPECT_EQ(promiscuous().value(), "off");
  const auto mark = window.find(Role::image, "Managed by your organization");
  ASSERT_TRUE(mark.exists()) << mark.problem();
  EXPECT_EQ(mark.help(), "Managed by your organization");
  window.click(promiscuous());
  EXPECT_THAT(person.changes(), IsEmpty());
  lock("{}");
  EXPECT_TRUE(promiscuous().isEnabled());
  EXPECT_FALSE(window.find(Role::image, "Managed by your organization").exists());
}

TEST_F(ManagedWindowTest, TextThatIsTypedWhenTheLockComesStaysAndIsNotStored) {
  headless::Window& window = open(QEVSettingsView::Tabs::capture);
  const auto filter = [&] { return window.find(Role::textField, "Capture filter"); };
  window.click(filter());
  window.type("tcp port 80");
  lock(R"({"com_velloquin_zorvantine_capture_filter": "udp"})");
  EXPECT_FALSE(filter().isEnabled());
  EXPECT_EQ(filter().value(), "tcp port 80");
  EXPECT_TRUE(window.find(Role::image, "Managed by your organization").exists());
  settings->close();
  EXPECT_THAT(person.changes(), IsEmpty());
}

TEST_F(ManagedWindowTest, LockedListOfPortsIsShownAndNeitherEditedNorReset) {
  Journal journal;
  LoadedPlugIns plugIns;
  const auto analyzer = std::make_shared<PortsPreferences>(journal);
  analyzer->config = {
      .toggles = {},
      .ports = QEVDependencies::AnalyzerPortsSpec{.networkProtocolKey = kPortsKey,
                                                  .defaultProtocolNames = {"DNS"},
                                                  .defaultPorts = {protocol("DNS", "53", 3)}}};
  plugIns.load("DNS", analyzer);
  headless::Window& window = open(QEVSettingsView::Tabs::analyze);
  window.click(window.find(Role::textField));
  window.type(",54");
  lock(R"({"com_velloquin_qev_dns_protocols": {"type": "data", "value": "W10="}})");
  EXPECT_TRUE(window.findAll(Role::textField).empty()) << "the locked list is empty";
  lock(std::string(R"({"com_velloquin_qev_dns_protocols": {"type": "data", "value": ")") +
       kLockedPorts + "\"}}");
  EXPECT_EQ(window.find(Role::textField).value(), "5353");
  EXPECT_FALSE(window.find(Role::textField).isEnabled());
  EXPECT_FALSE(window.find(Role::button, "Reset").isEnabled());
  for (const auto& menu : window.findAll(Role::menuButton)) EXPECT_FALSE(menu.isEnabled());
  window.close();
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_EQ(person.find(kPortsKey), nullptr);
}

TEST_F(ManagedWindowTest, EveryLockedSettingOfThePagesIsDisabled) {
  open(QEVSettingsView::Tabs::general);
  lock(R"({"com_velloquin_zorvantine_appearanceName": "NSAppearanceNameAqua",
           "com_velloquin_zorvantine_prefTimezone": "Europe/Berlin",
           "sparkle_automaticallyChecks": true,
           "com_velloquin_zorvantine_fontConsoleRaw": {"family": "Test Mono", "pointSize": 9}})");
  EXPECT_FALSE(settings->find(Role::button, "Light").isEnabled());
  EXPECT_FALSE(settings->find(Role::menuButton, "Packet time zone").isEnabled());
  EXPECT_FALSE(settings->find(Role::toggle, "Automatically check for updates").isEnabled());
  EXPECT_TRUE(settings->find(Role::toggle, "Include anonymous system profile").isEnabled());
  EXPECT_EQ(settings->findAll(Role::image).size(), 3U);
  const headless::Window& fonts = open(QEVSettingsView::Tabs::appearance);
  EXPECT_FALSE(fonts.find(Role::fontPicker, "Console Font:").isEnabled());
  EXPECT_TRUE(fonts.find(Role::fontPicker, "Packets List Font:").isEnabled());
}

}  // namespace
}  // namespace QEVSettings
