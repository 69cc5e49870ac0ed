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

// All that a feed's server learns of a machine, and that only where a person has agreed.
struct SystemProfile {
  std::string systemVersion;
  std::string architecture;
};

// What an updater works with. The host fills one in and makes it the standard before it creates its
// updater controller:
//
//     UpdaterConfiguration configuration;
//     configuration.feedAddress = "https://updates.example.com/appcast.xml";
//     configuration.publicKey = "VmqUPkiXhdTjmzIWbdlZ4wOrKhsF8rMTnZcmYNvYRBI=";
//     configuration.userDriver = std::make_shared<UpdateDialogs>();
//     UpdaterConfiguration::setStandard(std::move(configuration));
//
// Whatever is left out does no harm: without an address every check says so, without a key no
// package is downloaded, without a timer the updater never checks by itself, without a user driver
// nobody sees what came of it.
struct UpdaterConfiguration {
  // https:// or file://. A package comes from an address that is neither more of this machine nor
  // less protected: of a file from anywhere, of an https:// feed over https:// only.
  std::string feedAddress;
  // Lets the feed come from any address that the transport knows, such as http://, where anybody on
  // the way can change it. A package is checked all the same.
  bool allowsInsecureFeed = false;
  // Compared with the versions of the feed.
  std::string applicationVersion = QEVSettings::HostIdentity::current().version;
  SystemProfile profile;
  // The Ed25519 key, in base64, whose signature a package must have to be kept.
  std::string publicKey;
  // Where packages are put that are downloaded without asking; made when it is missing. Empty: none
  // are.
  std::filesystem::path downloadFolder;
  // Where the updater keeps its own settings; outlives the updater. The user's standard store when
  // null.
  QEVSettings::PreferencesStore* store = nullptr;
  // Reads file:// addresses only when null.
  std::shared_ptr<FeedTransport> transport;
  std::shared_ptr<UpdateTimer> timer;
  std::shared_ptr<SPUUserDriver> userDriver;
  std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;

  // What controllers are created with from now on. Main thread.
  static void setStandard(UpdaterConfiguration configuration);
  static const UpdaterConfiguration& standard();
};

}  // namespace sparkle
