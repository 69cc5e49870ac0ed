// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/KeyValueObservation.hpp"
#include "sparkle/SPUUpdaterDelegate.hpp"
#include "sparkle/UpdaterConfiguration.hpp"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace sparkle {

// Looks for newer versions of the application in an update feed: on request and, where the user
// wants that, once a day by itself. It never installs anything.
//
// Its three settings are stored in the preferences store, and follow changes that are made there,
// by other processes too. They are off by default. Main thread only.
//
//     SPUUpdater updater(UpdaterConfiguration::standard());
//     updater.start();
//     updater.setAutomaticallyChecksForUpdates(true);
class SPUUpdater {
public:
  // The keys of the settings, and of the time of the last check.
  static constexpr std::string_view kAutomaticallyChecksKey = "sparkle_automaticallyChecks";
  static constexpr std::string_view kAutomaticallyDownloadsKey = "sparkle_automaticallyDownloads";
  static constexpr std::string_view kSendsSystemProfileKey = "sparkle_sendsSystemProfile";
  static constexpr std::string_view kLastCheckKey = "sparkle_lastCheck";

  explicit SPUUpdater(UpdaterConfiguration configuration,
                      std::weak_ptr<SPUUpdaterDelegate> delegate = {},
                      std::weak_ptr<SPUStandardUserDriverDelegate> userDriverDelegate = {});
  SPUUpdater(const SPUUpdater&) = delete;
  SPUUpdater& operator=(const SPUUpdater&) = delete;
  // Cancels a check in progress.
  ~SPUUpdater() = default;

  // Allows checks, and begins those that the settings ask for.
  void start();

  // Begins a check. The user driver shows its outcome. Does nothing while `canCheckForUpdates` is
  // false.
  void checkForUpdates();

  // The properties. An observer is called for each change of a value, whoever made it.
  using BooleanObserver = foundation::Observable<bool>::Observer;

  // True when the updater has started and no check is in progress.
  bool canCheckForUpdates() const { return canCheckForUpdates_.get(); }
  [[nodiscard]] foundation::Subscription observeCanCheckForUpdates(
      foundation::ObservingOptions options, BooleanObserver observer);

  // Whether the updater checks by itself, at most once a day.
  bool automaticallyChecksForUpdates() const {
    return automaticallyChecksForUpdates_.property.get();
  }
  void setAutomaticallyChecksForUpdates(bool value);
  [[nodiscard]] foundation::Subscription observeAutomaticallyChecksForUpdates(
      foundation::ObservingOptions options, BooleanObserver observer);

  // Whether a check that the updater makes by itself also fetches the package that it finds.
  bool automaticallyDownloadsUpdates() const {
    return automaticallyDownloadsUpdates_.property.get();
  }
  void setAutomaticallyDownloadsUpdates(bool value);
  [[nodiscard]] foundation::Subscription observeAutomaticallyDownloadsUpdates(
      foundation::ObservingOptions options, BooleanObserver observer);

  // Whether requests for the feed contain the system's version and the machine's architecture.
  bool sendsSystemProfile() const { return sendsSystemProfile_.property.get(); }
  void setSendsSystemProfile(bool value);
  [[nodiscard]] foundation::Subscription observeSendsSystemProfile(
      foundation::ObservingOptions options, BooleanObserver observer);

private:
  // A property that is stored in the preferences store.
  struct Setting {
    Setting(QEVSettings::PreferencesStore& store, std::string_view key);
    void set(bool value) { store.setBool(value, key); }

    QEVSettings::PreferencesStore& store;
    std::string_view key;
    foundation::Observable<bool> property;
    foundation::Subscription storeObservation;
  };

  enum class Occasion { request, schedule };
  using Show = std::function<void(SPUUserDriver&)>;

  void check(Occasion occasion);
  void takeFeed(Occasion occasion, const std::string& address,
                const foundation::Result<std::string>& feed);
  // Whether to download an update that was found. Sets `update.packageProblem` when the user
  // wants it but it is not allowed.
  bool mayDownload(Occasion occasion, const std::string& feedAddress, FoundUpdate& update) const;
  void fail(Occasion occasion, const foundation::Error& error);
  void download(FoundUpdate update);
  void finish(const Show& show);
  void schedule();
  // Empty when no feed is configured.
  std::string feedAddress();
  std::chrono::seconds timeUntilDue() const;

  UpdaterConfiguration configuration_;
  std::weak_ptr<SPUUpdaterDelegate> delegate_;
  std::weak_ptr<SPUStandardUserDriverDelegate> userDriverDelegate_;
  bool isStarted_ = false;
  foundation::Observable<bool> canCheckForUpdates_{false};
  Setting automaticallyChecksForUpdates_;
  Setting automaticallyDownloadsUpdates_;
  Setting sendsSystemProfile_;
  foundation::Subscription scheduling_;
  foundation::Subscription timer_;
  foundation::Subscription fetch_;
};

}  // namespace sparkle
