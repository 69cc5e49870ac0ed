// SPDX-License-Identifier: MIT
#include "catalogue/HostSettings.hpp"

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "analyzers/AnalyzerDescription.hpp"
#include "foundation/Diagnostics.hpp"
#include "services/ProxyService.hpp"
#include "sparkle/SPUUpdater.hpp"

#include <utility>

namespace zorvantine {

using QEVSettings::PreferenceCatalogue;
using QEVSettings::PreferenceDescriptor;
using sparkle::SPUUpdater;
using Type = QEVSettings::PreferenceValue::Type;

namespace {

PreferenceDescriptor updateSwitch(std::string_view key, const char* title, const char* purpose) {
  return {.key = std::string(key),
          .type = Type::boolean,
          .defaultValue = false,
          .title = title,
          .purpose = purpose,
          .place = {.tab = "general", .row = title}};
}

std::vector<PreferenceDescriptor> updateSettings() {
  return {
      updateSwitch(SPUUpdater::kAutomaticallyChecksKey, "Automatically check for updates",
                   "Whether the program looks for a newer version once a day."),
      updateSwitch(SPUUpdater::kAutomaticallyDownloadsKey, "Automatically download updates",
                   "Whether a newer version that was found is downloaded at once."),
      updateSwitch(SPUUpdater::kSendsSystemProfileKey, "Include anonymous system profile",
                   "Whether update checks tell the system's version and the machine's kind."),
      {.key = std::string(SPUUpdater::kLastCheckKey),
       .type = Type::date,
       .title = "Last check for updates",
       .purpose = "When the program last looked for a newer version.",
       .isLockable = false},
      {.key = kUpdateFeedKey,
       .type = Type::string,
       .defaultValue = "",
       .title = "Update feed",
       .purpose = "The address of the list of versions; empty for no update checks."},
      {.key = kUpdatePublicKey,
       .type = Type::string,
       .defaultValue = "",
       .title = "Public key of updates",
       .purpose = "The key, in base64, with which downloaded versions have to be signed."},
  };
}

}  // namespace

std::vector<PreferenceDescriptor> hostSettings() {
  std::vector<PreferenceDescriptor> settings =
      QEVCoreComponents::QEVCaptureViewModel::descriptors();
  for (PreferenceDescriptor& each : ProxyService::descriptors())
    settings.push_back(std::move(each));
  for (PreferenceDescriptor& each : updateSettings()) settings.push_back(std::move(each));
  settings.push_back(
      {.key = kKeyLogKey,
       .type = Type::string,
       .defaultValue = "",
       .title = "Log of session keys",
       .purpose = "The file in which browsers log their TLS session keys.",
       .place = {.tab = "analyze", .analyzer = "TLS", .row = "Log of session keys"}});
  return settings;
}

const PreferenceCatalogue& hostCatalogue() {
  static const PreferenceCatalogue catalogue = [] {
    PreferenceCatalogue all = QEVSettings::fixedCatalogue();
    const auto add = [&](PreferenceDescriptor& descriptor) {
      if (const auto problem = all.add(std::move(descriptor)))
        foundation::reportDiagnostic("preferences: " + *problem);
    };
    for (PreferenceDescriptor& each : hostSettings()) add(each);
    for (const AnalyzerDescription& analyzer : sampleAnalyzers()) {
      if (analyzer.preferences == Preferences::none) continue;
      for (PreferenceDescriptor& each : QEVSettings::analyzerDescriptors(settingsOf(analyzer)))
        add(each);
    }
    return all;
  }();
  return catalogue;
}

}  // namespace zorvantine
