// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingWriter.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/localized.hpp"
#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "analyzers/AnalyzerError.hpp"
#include "appkit/Application.hpp"
#include "changes/AnalyzerPorts.hpp"
#include "changes/isOfAppearance.hpp"
#include "foundation/NotificationCenter.hpp"
#include "foundation/PreferenceObservers.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace QEVSettings {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using QEVDependencies::QEVNetworkProtocolList;
using QEVDependencies::QEVProtocolKonstants;
using QEVModels::AnalyzerPortsStore;
using sparkle::SPUUpdater;

namespace {

struct UpdaterSetting {
  std::string_view key;
  bool (SPUUpdater::*get)() const;
  void (SPUUpdater::*set)(bool);
};

constexpr std::array kUpdaterSettings{
    UpdaterSetting{SPUUpdater::kAutomaticallyChecksKey, &SPUUpdater::automaticallyChecksForUpdates,
                   &SPUUpdater::setAutomaticallyChecksForUpdates},
    UpdaterSetting{SPUUpdater::kAutomaticallyDownloadsKey,
                   &SPUUpdater::automaticallyDownloadsUpdates,
                   &SPUUpdater::setAutomaticallyDownloadsUpdates},
    UpdaterSetting{SPUUpdater::kSendsSystemProfileKey, &SPUUpdater::sendsSystemProfile,
                   &SPUUpdater::setSendsSystemProfile}};

std::string textOf(const QEVDependencies::ErrorState& state) {
  return state.errorDetails ? QEVCommonTools::localized(message(*state.errorDetails))
                            : state.errorText;
}

}  // namespace

SettingWriter::SettingWriter(PreferencesStore& store, Doors doors)
    : store_(store),
      doors_(std::move(doors)),
      observers_(std::make_shared<foundation::PreferenceObservers>()) {}

Outcome SettingWriter::write(std::string_view key, std::optional<PreferenceValue> value) {
  const auto refusals = writeAll({{.key = std::string(key), .value = std::move(value)}});
  return refusals.empty() ? done() : Outcome(Error{refusals.front().message});
}

std::vector<SettingWriter::Refusal> SettingWriter::writeAll(const std::vector<Setting>& settings) {
  std::vector<Refusal> refusals;
  bool hasNewAppearance = false;
  for (const Setting& each : settings) {
    const Outcome written = writeOne(each);
    if (!written) refusals.push_back({.key = each.key, .message = written.error().message});
    hasNewAppearance = hasNewAppearance || (written && isOfAppearance(each.key));
  }
  if (hasNewAppearance) applyAppearance();
  // An observer may destroy the writer.
  const auto observers = observers_;
  for (const Setting& each : settings) observers->announce(each.key);
  return refusals;
}

std::vector<SettingWriter::Refusal> SettingWriter::resetAll(const std::vector<std::string>& keys) {
  std::vector<Setting> settings;
  settings.reserve(keys.size());
  for (const std::string& key : keys) settings.push_back({.key = key, .value = std::nullopt});
  return writeAll(settings);
}

Subscription SettingWriter::observe(std::string_view key, PreferencesStore::Observer observer) {
  return observers_->observe(key, std::move(observer));
}

std::optional<SettingWriter::RowRefusal> SettingWriter::takeRefusal(std::string_view key) {
  const auto found = refusals_.find(key);
  if (found == refusals_.end()) return std::nullopt;
  std::optional<RowRefusal> refusal = std::move(found->second);
  refusals_.erase(found);
  return refusal;
}

Outcome SettingWriter::writeOne(const Setting& setting) {
  refusals_.erase(setting.key);
  if (store_.isLocked(setting.key)) return Error{QEVCommonTools::managedText()};
  if (setting.key.ends_with(kProtocolsKeySuffix)) return writePorts(setting);
  if (!writeToUpdater(setting)) storeValue(setting);
  return done();
}

void SettingWriter::storeValue(const Setting& setting) {
  if (setting.value) {
    store_.setObject(*setting.value, setting.key);
  } else {
    store_.removeObject(setting.key);
  }
}

// The default of the three settings is off. The key is removed too, for an updater that keeps its
// settings in this store.
bool SettingWriter::writeToUpdater(const Setting& setting) {
  const auto found = std::ranges::find(kUpdaterSettings, setting.key, &UpdaterSetting::key);
  if (found == kUpdaterSettings.end() || !doors_.updater) return false;
  // NOLINTNEXTLINE(misc-const-correctness): called through pointers to its members
  SPUUpdater& updater = doors_.updater->updaterController().updater();
  if (setting.value) {
    (updater.*found->set)(setting.value->convertedToBoolean().value_or(false));
  } else {
    if ((updater.*found->get)()) (updater.*found->set)(false);
    store_.removeObject(setting.key);
  }
  return true;
}

// The list is stored only when the analyzer has accepted all of it.
Outcome SettingWriter::writePorts(const Setting& setting) {
  const auto analyzer = analyzerPortsOf(setting.key);
  if (!analyzer) {
    storeValue(setting);
    return done();
  }
  const QEVNetworkProtocolList& factory = analyzer->spec.defaultPorts;
  const QEVNetworkProtocolList list = QEVModels::decodedProtocols(setting.value, factory);
  if (analyzer->controller) {
    const auto before = AnalyzerPortsStore(setting.key, store_).decode(factory);
    if (auto refused = registerList(*analyzer->controller, before, list)) {
      const std::string text = textOf(refused->state);
      refusals_.insert_or_assign(
          setting.key, RowRefusal{.record = refused->record, .state = std::move(refused->state)});
      return Error{text};
    }
    // As after the reset of the page, the factory list is stored even when this fails.
    if (haveSameRecords(list, factory)) {
      if (auto failure = failureOf([&] { analyzer->controller->setDefaultSettings(true); })) {
        refusals_.insert_or_assign(
            setting.key, RowRefusal{.record = std::nullopt, .state = *std::move(failure)});
      }
    }
  }
  storeValue(setting);
  auto& center = foundation::NotificationCenter::defaultCenter();
  center.post(rawValue(QEVProtocolKonstants::protocolListDidChange));
  center.post(rawValue(QEVProtocolKonstants::portsDidChange));
  return done();
}

void SettingWriter::applyAppearance() const {
  if (store_.boolForKey(QEVKonstantsKeys::kAppearanceUseSystem.name)) {
    appkit::Application::sharedApplication().setAppearance(std::nullopt);
  } else if (doors_.appDelegate) {
    doors_.appDelegate->setupAppearanceFromUserDefaults();
  }
}

}  // namespace QEVSettings
