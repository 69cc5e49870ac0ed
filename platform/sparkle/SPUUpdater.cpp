// SPDX-License-Identifier: MIT
#include "sparkle/SPUUpdater.hpp"

#include "AddressPolicy.hpp"
#include "Package.hpp"
#include "foundation/UserDefaults.hpp"
#include "sparkle/FileTransport.hpp"
#include "sparkle/Version.hpp"
#include "sparkle/reason.hpp"

#include <algorithm>
#include <compare>
#include <utility>

namespace sparkle {

namespace {

using namespace std::chrono_literals;
using foundation::Error;
using foundation::ObservingOptions;
using foundation::Result;
using foundation::Subscription;
using QEVSettings::PreferenceValue;

constexpr std::chrono::seconds kCheckInterval = 24h;
// Timers stop while the machine sleeps, so the clock is read more often than a check is due.
constexpr std::chrono::seconds kLongestWait = 1h;

UpdaterConfiguration completed(UpdaterConfiguration configuration) {
  if (configuration.store == nullptr)
    configuration.store = &foundation::UserDefaults::standardUserDefaults();
  if (!configuration.transport) configuration.transport = std::make_shared<FileTransport>();
  return configuration;
}

// The newest item of the feed, if it is newer than the running version.
Result<std::optional<AppcastItem>> newestUpdate(const Result<std::string>& feed,
                                                const std::string& currentVersion) {
  if (!feed) return feed.error();
  auto items = parseAppcast(*feed);
  if (!items) return items.error();
  const auto newest =
      std::ranges::max_element(*items, [](const AppcastItem& a, const AppcastItem& b) {
        return std::is_lt(compareVersions(a.version, b.version));
      });
  if (newest == items->end() || std::is_lteq(compareVersions(newest->version, currentVersion)))
    return {std::nullopt};
  return {std::move(*newest)};
}

}  // namespace

SPUUpdater::Setting::Setting(QEVSettings::PreferencesStore& store, std::string_view key)
    : store(store),
      key(key),
      property(store.boolForKey(key)),
      storeObservation(store.observe(key, [this](std::string_view) {
        const bool value = this->store.boolForKey(this->key);
        if (value != property.get()) property.set(value);
      })) {}

SPUUpdater::SPUUpdater(UpdaterConfiguration configuration,
                       std::weak_ptr<SPUUpdaterDelegate> delegate,
                       std::weak_ptr<SPUStandardUserDriverDelegate> userDriverDelegate)
    : configuration_(completed(std::move(configuration))),
      delegate_(std::move(delegate)),
      userDriverDelegate_(std::move(userDriverDelegate)),
      automaticallyChecksForUpdates_(*configuration_.store, kAutomaticallyChecksKey),
      automaticallyDownloadsUpdates_(*configuration_.store, kAutomaticallyDownloadsKey),
      sendsSystemProfile_(*configuration_.store, kSendsSystemProfileKey),
      scheduling_(automaticallyChecksForUpdates_.property.observe(ObservingOptions::newValue,
                                                                  [this](bool) { schedule(); })) {}

void SPUUpdater::start() {
  if (isStarted_) return;
  isStarted_ = true;
  schedule();
  canCheckForUpdates_.set(true);
}

void SPUUpdater::checkForUpdates() { check(Occasion::request); }

Subscription SPUUpdater::observeCanCheckForUpdates(ObservingOptions options,
                                                   BooleanObserver observer) {
  return canCheckForUpdates_.observe(options, std::move(observer));
}

void SPUUpdater::setAutomaticallyChecksForUpdates(bool value) {
  automaticallyChecksForUpdates_.set(value);
}

Subscription SPUUpdater::observeAutomaticallyChecksForUpdates(ObservingOptions options,
                                                              BooleanObserver observer) {
  return automaticallyChecksForUpdates_.property.observe(options, std::move(observer));
}

void SPUUpdater::setAutomaticallyDownloadsUpdates(bool value) {
  automaticallyDownloadsUpdates_.set(value);
}

Subscription SPUUpdater::observeAutomaticallyDownloadsUpdates(ObservingOptions options,
                                                              BooleanObserver observer) {
  return automaticallyDownloadsUpdates_.property.observe(options, std::move(observer));
}

void SPUUpdater::setSendsSystemProfile(bool value) { sendsSystemProfile_.set(value); }

Subscription SPUUpdater::observeSendsSystemProfile(ObservingOptions options,
                                                   BooleanObserver observer) {
  return sendsSystemProfile_.property.observe(options, std::move(observer));
}

void SPUUpdater::check(Occasion occasion) {
  if (!canCheckForUpdates_.get()) return;
  canCheckForUpdates_.set(false);

  FeedRequest request{.address = feedAddress()};
  request.longestAnswer = kLongestFeed;
  if (sendsSystemProfile()) {
    request.headers = {{"X-System-Version", configuration_.profile.systemVersion},
                       {"X-System-Architecture", configuration_.profile.architecture}};
  }
  if (request.address.empty()) {
    fail(occasion, reason("the application names no update feed"));
    return;
  }
  if (!mayFetchFeed(request.address, configuration_.allowsInsecureFeed)) {
    fail(occasion, reason("the address %1 is neither https:// nor a file on this machine",
                          {request.address}));
    return;
  }
  fetch_ = configuration_.transport->fetch(
      request, [this, occasion, address = request.address](const Result<std::string>& feed) {
        takeFeed(occasion, address, feed);
      });
}

void SPUUpdater::takeFeed(Occasion occasion, const std::string& address,
                          const Result<std::string>& feed) {
  configuration_.store->setObject(PreferenceValue::Date(configuration_.now().time_since_epoch()),
                                  kLastCheckKey);

  auto newest = newestUpdate(feed, configuration_.applicationVersion);
  const bool isRequested = occasion == Occasion::request;
  if (!newest) {
    fail(occasion, newest.error());
  } else if (!*newest) {
    finish(isRequested ? Show([version = configuration_.applicationVersion](SPUUserDriver& driver) {
      driver.showUpdateNotFound(version);
    })
                       : Show());
  } else {
    FoundUpdate update{std::move(**newest), configuration_.applicationVersion, std::nullopt};
    if (mayDownload(occasion, address, update)) {
      download(std::move(update));
    } else {
      finish([update](SPUUserDriver& driver) { driver.showUpdateFound(update); });
    }
  }
}

bool SPUUpdater::mayDownload(Occasion occasion, const std::string& feedAddress,
                             FoundUpdate& update) const {
  const Enclosure& enclosure = update.item.enclosure;
  const bool isWanted = occasion == Occasion::schedule && automaticallyDownloadsUpdates();
  if (!isWanted || configuration_.downloadFolder.empty() || enclosure.url.empty()) return false;
  const auto allowed = checkDownload(enclosure, feedAddress, configuration_.publicKey);
  if (!allowed) update.packageProblem = allowed.error();
  return static_cast<bool>(allowed);
}

void SPUUpdater::fail(Occasion occasion, const Error& error) {
  const bool isRequested = occasion == Occasion::request;
  finish(isRequested ? Show([error](SPUUserDriver& driver) { driver.showUpdaterError(error); })
                     : Show());
}

void SPUUpdater::download(FoundUpdate update) {
  const Enclosure& enclosure = update.item.enclosure;
  FeedRequest request{.address = enclosure.url};
  request.longestAnswer = static_cast<std::size_t>(enclosure.length);
  request.patience = 30min;
  fetch_ = configuration_.transport->fetch(
      request, [this, update = std::move(update)](const Result<std::string>& contents) {
        FoundUpdate shown = update;
        // The new version is shown even when its download failed.
        const auto package =
            contents ? keepPackage(update.item.enclosure, *contents, configuration_.publicKey,
                                   configuration_.downloadFolder)
                     : Result<std::filesystem::path>(contents.error());
        if (package) {
          shown.package = *package;
        } else {
          shown.packageProblem = package.error();
        }
        finish([shown](SPUUserDriver& driver) { driver.showUpdateFound(shown); });
      });
}

void SPUUpdater::finish(const Show& show) {
  schedule();
  // An observer of the end of the check may destroy the updater.
  const auto userDriver = configuration_.userDriver;
  const auto userDriverDelegate = userDriverDelegate_;
  canCheckForUpdates_.set(true);
  if (!show || !userDriver) return;
  if (const auto delegate = userDriverDelegate.lock())
    delegate->standardUserDriverWillShowOutcome();
  show(*userDriver);
}

void SPUUpdater::schedule() {
  timer_.cancel();
  if (!isStarted_ || !automaticallyChecksForUpdates() || !configuration_.timer) return;
  // Without a feed no check is due. A feed may be configured later, so the timer goes on.
  const bool hasFeed = !feedAddress().empty();
  timer_ = configuration_.timer->after(
      hasFeed ? std::min(timeUntilDue(), kLongestWait) : kLongestWait, [this] {
        if (feedAddress().empty() || timeUntilDue() > 0s || !canCheckForUpdates()) {
          schedule();
        } else {
          check(Occasion::schedule);
        }
      });
}

std::string SPUUpdater::feedAddress() {
  const auto delegate = delegate_.lock();
  const auto address = delegate ? delegate->feedURLString(*this) : std::nullopt;
  return address.value_or(configuration_.feedAddress);
}

std::chrono::seconds SPUUpdater::timeUntilDue() const {
  const auto stored = configuration_.store->objectForKey(kLastCheckKey);
  if (!stored || stored->type() != PreferenceValue::Type::date) return 0s;
  const auto lastCheck = stored->asDate().value_or(PreferenceValue::Date());
  const PreferenceValue::Date now(configuration_.now().time_since_epoch());
  // A last check in the future was recorded by a wrong clock.
  if (!(lastCheck <= now)) return 0s;
  const auto left = lastCheck + kCheckInterval - now;
  return left > 0s ? std::chrono::ceil<std::chrono::seconds>(left) : 0s;
}

}  // namespace sparkle
