// SPDX-License-Identifier: MIT
#include "window/DesktopHost.hpp"

#include "commandline/TextForm.hpp"
#include "foundation/Bundle.hpp"
#include "history/RecentChangesView.hpp"
#include "history/historyRules.hpp"
#include "pages/Language.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "process/ReplaceProcess.hpp"
#include "profiles/Profiles.hpp"
#include "viewkit/ViewHost.hpp"
#include "window/DescriptorWatch.hpp"
#include "window/HistoryMenu.hpp"
#include "window/LanguageFonts.hpp"
#include "window/MainWindow.hpp"
#include "window/Updates.hpp"

#include <array>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace zorvantine {

namespace {

// Qt needs a command line. It gets one without arguments, because ours are not for it.
struct NoArguments {
  std::string name = "zorvantine";
  int count = 1;
  std::array<char*, 2> words{name.data(), nullptr};
};

NoArguments& noArguments() {
  static NoArguments arguments;
  return arguments;
}

// Qt stops the process when the display that the environment names cannot be reached. The program
// starts again in an environment that names none.
void startAgainWithoutDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) ::unsetenv(name);
  replaceProcess("/proc/self/exe");
}

NoArguments& preparedFor(QtMessages& messages, qt::Application::Display display) {
  if (display == qt::Application::Display::screen) messages.beforeStop(startAgainWithoutDisplay);
  return noArguments();
}

// The texts are lost when the window closes, so they are reported on standard error.
void tellOfRefusedTexts(const std::vector<viewkit::RefusedText>& texts) {
  for (const viewkit::RefusedText& each : texts) {
    std::cerr << "zorvantine: "
              << onOneLine("\"" + each.text + "\" was not stored for " + each.label + ": " +
                           each.problem)
              << std::endl;
  }
}

}  // namespace

DesktopHost::DesktopHost(WindowOptions options, QEVSettings::PreferencesStore& store,
                         qt::Application::Display display)
    : application_(preparedFor(messages_, display).count, noArguments().words.data(), display),
      options_(std::move(options)),
      store_(store) {
  messages_.beforeStop(nullptr);
  start();
  application_.setLanguage(windowLanguage());
  if (const auto missing = missingFontMessage(windowLanguage()))
    std::cerr << "zorvantine: " << *missing << std::endl;
}

DesktopHost::~DesktopHost() {
  recentChanges_.reset();
  settings_.reset();
  host_.reset();
  forgetDesktopUpdates();
}

void DesktopHost::start() {
  useDesktopForUpdates(preferences());
  host_.emplace(options_, preferences());
}

QEVSettings::PreferencesStore& DesktopHost::preferences() const {
  return profile_.preferences ? *profile_.preferences : store_;
}

viewkit::Environment DesktopHost::settingsEnvironment() const {
  viewkit::Environment environment = host_->environment();
  environment.reducedMotion = application_.reducedMotion();
  return environment;
}

viewkit::Environment DesktopHost::environment() const {
  return {.defaultStore = preferences(),
          .layoutDirection = windowDirection(),
          .reducedMotion = application_.reducedMotion()};
}

std::unique_ptr<qt::Window> DesktopHost::makeWindow(Tab tab) const {
  auto window = std::make_unique<qt::Window>(
      qt::WindowOptions{.title = foundation::Bundle::mainBundle().localizedString("Settings"),
                        .environment = settingsEnvironment(),
                        .root = host_->settingsView(tab)});
  window->onRefusedTexts(tellOfRefusedTexts);
  return window;
}

foundation::UserDefaults& DesktopHost::person() const {
  return profile_.store ? *profile_.store : ProgramPreferences::store();
}

std::unique_ptr<qt::Window> DesktopHost::makeRecentChangesWindow() const {
  const auto write = [writer = host_->writer()](std::string_view key,
                                                std::optional<QEVSettings::PreferenceValue> value) {
    return writer->write(key, std::move(value));
  };
  return std::make_unique<qt::Window>(
      qt::WindowOptions{.title = foundation::Bundle::mainBundle().localizedString("Recent Changes"),
                        .environment = environment(),
                        .root = RecentChangesView{.model = std::make_shared<RecentChangesModel>(
                                                      person(), preferences(), write)}});
}

void DesktopHost::run(Tab tab, const Interruption& interruption) {
  const auto window = makeWindow(tab);
  addRecentChangesKeys(window->widget(), [this] { openRecentChanges(); });
  // The application ends with its last window.
  window->onClose([this] {
    if (recentChanges_) recentChanges_->close();
  });
  // Closing the window commits a text that is being edited; ending the process would lose it.
  const DescriptorWatch interrupted(interruption.descriptor(), [&window] { window->close(); });
  window->show();
  application_.run();
}

void DesktopHost::runMainWindow(const Interruption& interruption) {
  MainWindow main(
      {.environment = environment(),
       .updater = host_->updater(),
       .history = host_->history(),
       .reset = host_->reset(),
       .openSettings = [this] { openSettings(); },
       .openRecentChanges = [this] { openRecentChanges(); },
       .profiles = profiles,
       .chooseProfile = [this, &main](const std::string& name) { switchTo(name, main); },
       .closed =
           [this] {
             if (settings_) settings_->close();
             if (recentChanges_) recentChanges_->close();
             qt::Application::quit();
           }});
  for (const std::string& name : profiles()) {
    if (profileFile(name) == foundation::UserDefaults::standardFile()) main.setProfile(name);
  }
  const DescriptorWatch interrupted(interruption.descriptor(), [&main] { main.close(); });
  main.show();
  application_.run();
}

// The windows close first, which commits their texts to the store that they belong to. The
// analyzers of the new host replace those of the former one.
void DesktopHost::switchTo(const std::string& profile, MainWindow& main) {
  if (const auto exists = checkProfile(profile); !exists) {
    std::cerr << "zorvantine: " << onOneLine(exists.error().message) << std::endl;
    return;
  }
  const bool hadSettings = settings_ && settings_->isOpen();
  if (hadSettings) settings_->close();
  settings_.reset();
  recentChanges_.reset();
  main.closeContent();
  host_.reset();
  OpenProfile opened;
  if (const auto file = profileFile(profile); file != foundation::UserDefaults::standardFile()) {
    opened.store = foundation::UserDefaults::open(file);
    opened.preferences = std::make_unique<QEVSettings::LayeredPreferences>(
        *opened.store, ProgramPreferences::layers());
    opened.store->setHistoryRules(
        historyRules([preferences = opened.preferences.get()]() -> QEVSettings::PreferencesStore& {
          return *preferences;
        }));
  }
  const OpenProfile former = std::exchange(profile_, std::move(opened));
  start();
  main.showContent(environment(), host_->updater());
  main.setCommands(host_->history(), host_->reset());
  main.setProfile(profile);
  if (hadSettings) openSettings();
}

void DesktopHost::openSettings() {
  if (!settings_ || !settings_->isOpen()) {
    settings_ = makeWindow(Tab::general);
    // Another window may have been opened before this is called.
    settings_->onClose([this] {
      if (settings_ && !settings_->isOpen()) settings_.reset();
    });
  }
  settings_->show();
}

void DesktopHost::openRecentChanges() {
  if (!recentChanges_ || !recentChanges_->isOpen()) {
    recentChanges_ = makeRecentChangesWindow();
    recentChanges_->onClose([this] {
      if (recentChanges_ && !recentChanges_->isOpen()) recentChanges_.reset();
    });
  }
  recentChanges_->show();
}

}  // namespace zorvantine
