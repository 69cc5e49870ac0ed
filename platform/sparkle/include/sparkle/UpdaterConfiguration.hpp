// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "sparkle/FeedTransport.hpp"
#include "sparkle/SPUUserDriver.hpp"
#include "sparkle/UpdateTimer.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace sparkle {

// What the server of a feed is told about the machine, if the user agreed.
//
//     configuration.profile = {.systemVersion = "Debian 12", .architecture = "amd64"};
struct SystemProfile {
  std::string systemVersion;
  std::string architecture;
};

// The configuration of an updater. The host makes it the standard before it creates its updater
// controller:
//
//     UpdaterConfiguration configuration;
//     configuration.feedAddress = "https://updates.example.com/appcast.xml";
//     configuration.publicKey = "VmqUPkiXhdTjmzIWbdlZ4wOrKhsF8rMTnZcmYNvYRBI=";
//     configuration.userDriver = std::make_shared<UpdateDialogs>();
//     UpdaterConfiguration::setStandard(std::move(configuration));
//
// Every field may be left out. Without an address every check fails, without a key no package is
// downloaded, without a timer the updater never checks by itself, and without a user driver no
// outcome is shown.
struct UpdaterConfiguration {
  // https:// or file://. A file may name packages at any address, an https:// feed only at https://
  // addresses.
  std::string feedAddress;
  // Allows any address that the transport supports, such as http://, although others can change the
  // feed on its way. Signatures of packages are verified all the same.
  bool allowsInsecureFeed = false;
  // Compared with the versions of the feed.
  std::string applicationVersion = QEVSettings::HostIdentity::current().version;
  SystemProfile profile;
  // The Ed25519 public key, in base64, that verifies packages.
  std::string publicKey;
  // The folder for packages, created when it is missing. Empty to download none.
  std::filesystem::path downloadFolder;
  // The store of the updater's settings. It outlives the updater. Null for the standard store of
  // the user.
  QEVSettings::PreferencesStore* store = nullptr;
  // Null to support file:// addresses only.
  std::shared_ptr<FeedTransport> transport;
  std::shared_ptr<UpdateTimer> timer;
  std::shared_ptr<SPUUserDriver> userDriver;
  std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;

  // The configuration of controllers that are created from now on. Main thread only.
  static void setStandard(UpdaterConfiguration configuration);
  static const UpdaterConfiguration& standard();
};

}  // namespace sparkle
