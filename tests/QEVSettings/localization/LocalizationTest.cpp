// SPDX-License-Identifier: MIT
#include "AnalyzerWindowTest.hpp"
#include "MarkedTexts.hpp"
#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/localized.hpp"
#include "QEVDependencies/ProxyAddress.hpp"
#include "QEVDependencies/ProxyServiceProtocol.hpp"
#include "QEVDependencies/QEVError.hpp"
#include "QEVModels/PortsValidator.hpp"
#include "QEVSettings/ActionHistory.hpp"
#include "QEVSettings/CheckForUpdatesView.hpp"
#include "QEVSettings/ProxySettingsView.hpp"
#include "QEVSettings/RecordingPreferences.hpp"
#include "QEVSettings/SettingWriter.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/SettingsReset.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "QEVSettings/settingText.hpp"
#include "analyzers/AnalyzerDescription.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/UserDefaults.hpp"
#include "viewkit/EnvironmentObjects.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>

// A program of its own: the module looks for its resources once in the life of a process.
namespace QEVSettings {
namespace {

using foundation::StringsTable;
using testing::IsEmpty;
using viewkit::Role;

// Where values are filled in: "%@", and "%1" for a value that has a number.
std::multiset<std::string> places(std::string_view text) {
  std::multiset<std::string> found;
  for (auto at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1)) {
    found.emplace(text.substr(at, 2));
  }
  return found;
}

TEST(TranslationsTest, EveryLanguageHasEveryEnglishText) {
  for (const auto& bundle : {kModule, kTools, kHost}) {
    const StringsTable english = readTable(bundle, "en");
    ASSERT_FALSE(english.empty());
    for (const char* language : {"de", "fr", "es", "ja", "zh-Hans", "ar"}) {
      const StringsTable table = readTable(bundle, language);
      for (const auto& [key, text] : english) {
        const auto found = table.find(key);
        ASSERT_NE(found, table.end()) << language << " lacks \"" << key << '"';
        EXPECT_FALSE(found->second.empty()) << language << ' ' << key;
        EXPECT_EQ(places(found->second), places(key)) << language << ' ' << key;
      }
      EXPECT_EQ(table.size(), english.size()) << language << " has entries that nobody asks for";
    }
  }
}

class SilentProxy final : public QEVDependencies::ProxyServiceProtocol {
public:
  bool isEnabled() const override { return true; }
  void setEnabled(bool) override {}
  std::optional<std::string> problem() const override { return std::nullopt; }
  QEVDependencies::ProxyAddress listeningAddress() const override {
    return {.host = "x-host", .port = 80};
  }
  void setListeningAddress(QEVDependencies::ProxyAddress) override {}
  std::optional<QEVDependencies::ProxyAddress> upstream() const override { return std::nullopt; }
  void setUpstream(std::optional<QEVDependencies::ProxyAddress>) override {}
  bool interceptsTLS() const override { return false; }
  void setInterceptsTLS(bool) override {}
  std::optional<std::string> certificatePath() const override { return std::nullopt; }
  void setCertificatePath(std::optional<std::string>) override {}
};

// Says that its values come from there.
class StoreOfOrigin final : public PreferencesStore {
public:
  explicit StoreOfOrigin(PreferenceOrigin origin) : origin_(origin) {}

  PreferenceOrigin origin(std::string_view) const override { return origin_; }
  const PreferenceValue* find(std::string_view) const override { return nullptr; }
  PreferenceDictionary dictionaryRepresentation() const override { return {}; }
  void setObject(PreferenceValue, std::string_view) override {}
  void removeObject(std::string_view) override {}
  [[nodiscard]] Subscription observe(std::string_view, Observer) override { return {}; }
  [[nodiscard]] Subscription observeAll(Observer) override { return {}; }

private:
  PreferenceOrigin origin_;
};

// A store in memory that locks every key on request.
class LockableStore final : public PreferencesStore {
public:
  bool isEveryKeyLocked = false;

  const PreferenceValue* find(std::string_view key) const override { return store_->find(key); }
  PreferenceDictionary dictionaryRepresentation() const override {
    return store_->dictionaryRepresentation();
  }
  void setObject(PreferenceValue value, std::string_view key) override {
    store_->setObject(std::move(value), key);
  }
  void removeObject(std::string_view key) override { store_->removeObject(key); }
  bool isLocked(std::string_view) const override { return isEveryKeyLocked; }
  [[nodiscard]] Subscription observe(std::string_view key, Observer observer) override {
    return store_->observe(key, std::move(observer));
  }
  [[nodiscard]] Subscription observeAll(Observer observer) override {
    return store_->observeAll(std::move(observer));
  }

private:
  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
};

void seeMenu(MarkedTexts& texts, headless::Window& window, const headless::Element& element) {
  ASSERT_TRUE(window.openContextMenu(element));
  for (const auto& item : window.openMenuItems()) texts.see(item.title);
  window.press(headless::Key::escape);
}

// Sees the titles, questions and notices of undo, redo and resets, in a window over a store of its
// own.
class SeenHistory {
public:
  SeenHistory(MarkedTexts& texts, const QEVSettingsView& page)
      : texts_(texts),
        window_(page, viewkit::Environment{
                          .defaultStore = recording_,
                          .objects = viewkit::EnvironmentObjects().with(history_).with(reset_)}) {}

  void seeItBeforeAnyChange() {
    seeMenu(texts_, window_, window_.find(Role::tabList));
    texts_.see(history_->undoTitle());
    texts_.see(history_->redoTitle());
    reset_->askToResetPage();
    seeNotice();
    reset_->askToResetAll();
    seeNotice();
  }

  void seeChangesTakenBack() {
    setZone("x-1");
    texts_.see(history_->undoTitle());
    setElsewhere("x-other");
    history_->undo();
    seeNotice();
    setZone("x-2");
    history_->undo();
    texts_.see(history_->redoTitle());
    setZone("x-3");
    history_->undo();
    setElsewhere("x-elsewhere");
    history_->redo();
    seeNotice();
    setZone("x-4");
    whileLocked([&] { history_->undo(); });
    setZone("x-5");
    history_->undo();
    whileLocked([&] { history_->redo(); });
  }

  void seeResets() {
    reset_->askToResetPage();
    foundation::MainQueue::mainQueue().drain();
    texts_.see(window_);
    whileLocked([&] { history_->notice()->confirm(); });
    reset_->askToResetPage();
    history_->notice()->confirm();
    texts_.see(history_->undoTitle());
    setZone("x-6");
    reset_->askToResetAll();
    seeNotice();
    history_->notice()->confirm();
    texts_.see(history_->undoTitle());
  }

private:
  void setZone(const char* zone) { recording_.setObject(zone, kPrefTimezoneString.name); }
  void setElsewhere(const char* zone) { underneath_.setObject(zone, kPrefTimezoneString.name); }
  void seeNotice() { texts_.see(history_->notice()->text()); }
  void whileLocked(const std::function<void()>& act) {
    underneath_.isEveryKeyLocked = true;
    act();
    seeNotice();
    underneath_.isEveryKeyLocked = false;
  }

  MarkedTexts& texts_;
  LockableStore underneath_;
  RecordingPreferences recording_{underneath_};
  std::shared_ptr<SettingsCatalogue> catalogue_ = std::make_shared<SettingsCatalogue>();
  std::shared_ptr<ActionHistory> history_ = std::make_shared<ActionHistory>(
      recording_, std::make_shared<SettingWriter>(recording_), catalogue_);
  std::shared_ptr<SettingsReset> reset_ = std::make_shared<SettingsReset>(history_, catalogue_);
  headless::Window window_;
};

class LocalizationTest : public AnalyzerWindowTest {
protected:
  // The titles, purposes and values of every setting, and what its row offers.
  void seeSettings(MarkedTexts& texts) {
    const auto catalogue = std::make_shared<SettingsCatalogue>();
    auto settings = QEVCoreComponents::QEVCaptureViewModel::descriptors();
    for (const auto* each : catalogue->current().all()) settings.push_back(*each);
    for (const PreferenceDescriptor& each : settings) {
      if (each.place.row.empty()) continue;
      texts.see(settingText(each.title));
      texts.see(settingText(each.purpose));
      const bool isOfMachine = each.key == kPrefTimezoneString.name;
      if (!isOfMachine && each.type != PreferenceValue::Type::data) texts.see(defaultText(each));
    }
    for (const auto origin :
         {PreferenceOrigin::locked, PreferenceOrigin::commandLine, PreferenceOrigin::user,
          PreferenceOrigin::administrator, PreferenceOrigin::standard})
      texts.see(originText(StoreOfOrigin(origin), "x-key"));

    store.setObject("x-zone", kPrefTimezoneString.name);
    const auto open = [&](Tabs tab) {
      return std::make_unique<headless::Window>(
          settingsView(tab),
          viewkit::Environment{.defaultStore = store,
                               .objects = viewkit::EnvironmentObjects().with(catalogue).with(
                                   std::make_shared<SettingWriter>(store))});
    };
    // The catalogue does not describe the settings of this page.
    const auto capture = open(Tabs::capture);
    seeMenu(texts, *capture, capture->findAll(Role::toggle).front());
    const auto general = open(Tabs::general);
    const auto zone = general->find(Role::menuButton);
    seeMenu(texts, *general, zone);
    texts.see(zone.note());
    general->chooseFromContextMenu(zone, marked("What Is This?"));
    for (const char* label : {"Key", "Default", "Origin"})
      texts.see(general->findText(marked(label)).label());
  }

  // The notices about problems of the store and about its opening.
  void seeStorageNotices(MarkedTexts& texts) {
    for (const auto problem :
         {StorageProblem::diskFull, StorageProblem::notWritable, StorageProblem::busy,
          StorageProblem::unusable, StorageProblem::noFile, StorageProblem::failing}) {
      store.setStorageProblem(problem);
      texts.see(SettingsWindowTest::open(Tabs::general));
    }
    store.setStorageProblem(std::nullopt);
    StoreOpening opening;
    for (const auto outcome : {StoreOpening::Outcome::restored, StoreOpening::Outcome::begunEmpty,
                               StoreOpening::Outcome::inMemory}) {
      opening.outcome = outcome;
      for (opening.lostKeys = 0; opening.lostKeys < 2; ++opening.lostKeys) {
        close();  // a window that is open would report the recovery first
        store.setOpening(opening);
        texts.see(SettingsWindowTest::open(Tabs::general));
      }
    }
  }

  // The messages about errors and about typed ports and addresses.
  void seeMessages(MarkedTexts& texts) {
    for (int i = 0; i < 10; ++i)
      texts.see(QEVCommonTools::localized(message(static_cast<QEVDependencies::QEVError>(i))));
    texts.see(QEVCommonTools::localized(message(static_cast<QEVDependencies::QEVError>(10))));
    for (const char* ports :
         {"x", "x,y", "70000", "70000,70001", "2-1", "2-1,3-1", "1,1", "1,1,2,2", "x,y,z,w"}) {
      texts.see(QEVModels::validatedPorts(ports).corrections.front().message());
    }
    for (const char* host : {"", "no host"}) {
      texts.see(
          QEVCommonTools::localized(QEVDependencies::validatedProxyHost(host).error().message));
    }
    texts.see(
        QEVCommonTools::localized(QEVDependencies::validatedProxyPort("none").error().message));
    texts.see(
        headless::Window(QEVCommonTools::managed(viewkit::View(), true), {.defaultStore = store}));
  }

  // With every option that an analyzer of the host has.
  static std::shared_ptr<AnalyzerPreferences> analyzerWithAllOptions() {
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config = QEVDependencies::AnalyzerSettingsConfig{
        .color =
            QEVDependencies::AnalyzerColorSpec{.colorKey = "color", .usesColorKey = "usesColor"}};
    auto analyzers = zorvantine::sampleAnalyzers();
    analyzers.push_back(zorvantine::syntheticAnalyzer(1));
    std::set<std::string> labels;
    for (const auto& analyzer : analyzers) {
      for (const auto& option : analyzer.options) labels.insert(option.label);
    }
    for (const auto& label : labels) {
      preferences->config->toggles.push_back(
          {.id = label, .defaultsKey = label, .labelKey = label});
    }
    return preferences;
  }

  static std::shared_ptr<AnalyzerPreferences> analyzerWithPorts() {
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config = QEVDependencies::AnalyzerSettingsConfig{
        .ports = QEVDependencies::AnalyzerPortsSpec{
            .networkProtocolKey = "com_velloquin_qev_test_protocols",
            .defaultProtocolNames = {},
            .defaultPorts = {protocol("", "1", 1), protocol("TCP", "1", 1)}}};
    return preferences;
  }

  static void enter(headless::Window& window, const std::string& label, std::string_view text) {
    window.click(window.find(Role::textField, label));
    window.selectAll();
    window.type(text);
    window.press(headless::Key::enter);
  }
  static std::string marked(std::string_view text) {
    return std::string(kOpen) + std::string(text) + std::string(kClose);
  }
};

TEST_F(LocalizationTest, EveryTextOfTheTablesIsUsedAndNoOther) {
  MarkedTexts texts;
  QEVCommonTools::FontPreferences(store.underneath())
      .setCom_velloquin_zorvantine_fontConsoleRaw(
          {.family = "x-Serif", .style = "", .pointSize = 12});
  const auto openAnalyzers = [this]() -> headless::Window& {
    return SettingsWindowTest::open(Tabs::analyze);
  };
  texts.see(openAnalyzers());

  load("x-none");
  load("x-options", analyzerWithAllOptions());
  load("x-ports", analyzerWithPorts());
  interfaces->interfaces = {{.name = "x-0", .addresses = {}, .isUp = true},
                            {.name = "x-1", .addresses = {}}};
  captureModel->setUsesRingOfFiles(true);
  const auto proxy = std::make_shared<SilentProxy>();
  headless::Window& window = SettingsWindowTest::open(Tabs::general, ProxySettingsView(proxy));
  for (const char* tab : {"General", "Capture", "MITM Proxy", "Analyzer", "Fonts"}) {
    window.selectTab(marked(tab));
    texts.see(marked(tab));
    texts.see(window);
    window.click(window.find(Role::helpButton));
    texts.see(window);
    window.press(headless::Key::escape);
  }
  window.selectTab(marked("Analyzer"));
  for (const char* analyzer : {"x-none", "x-options", "x-ports"}) {
    window.click(window.find(Role::listItem, analyzer));
    texts.see(window);
  }
  for (const char* query : {"fonts", "x-options", "x-nothing"}) {
    window.press(headless::Key::f, appkit::Event::control);
    window.type(query);
    texts.see(window);
  }
  window.press(headless::Key::escape);
  window.selectTab(marked("Capture"));
  enter(window, marked("Buffer size (MiB)"), "0");
  enter(window, marked("Capture filter"), "(");
  texts.see(window);
  interfaces->interfaces.clear();
  texts.see(SettingsWindowTest::open(Tabs::capture));
  texts.see(headless::Window(CheckForUpdatesView(updater), {.defaultStore = store}));

  seeStorageNotices(texts);
  seeMessages(texts);
  seeSettings(texts);
  SeenHistory history(texts, settingsView(Tabs::general));
  history.seeItBeforeAnyChange();
  history.seeChangesTakenBack();
  history.seeResets();

  EXPECT_THAT(texts.unmarked(), IsEmpty())
      << "shown without being looked up, or missing in the English table";
  EXPECT_THAT(texts.unseen(), IsEmpty()) << "in the English table, but nobody asks for it";
}

}  // namespace
}  // namespace QEVSettings
