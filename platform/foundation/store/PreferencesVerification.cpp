// SPDX-License-Identifier: MIT
#include "foundation/PreferencesVerification.hpp"

#include "store/FilePresence.hpp"
#include "store/StoreIdentity.hpp"
#include "store/recovery/PreferencesRecovery.hpp"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <set>
#include <utility>

namespace foundation {

namespace {

std::string timeOf(std::time_t time) {
  std::tm parts{};
  ::localtime_r(&time, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts)};
}

class Verification {
public:
  PreferencesVerification of(const std::filesystem::path& store) {
    verdict_.isGood = true;
    const auto kind = kindOfStore(store);
    const bool hasCopy = presenceOf(goodCopyOf(store)) != Presence::absent;
    if (!kind) {
      problem("The store cannot be used: " + kind.error().message + ".");
    } else if (*kind == StoreKind::foreign) {
      problem(store.string() + " is " + descriptionOfForeignFile(store) +
              ", not a preferences store.");
    } else if (*kind == StoreKind::missing && !hasCopy) {
      say("There is no store at " + store.string() + "; the first write makes one.");
    } else if (*kind == StoreKind::missing) {
      problem("There is no store at " + store.string() +
              ". The next start recovers it from its good copy.");
    } else if (*kind == StoreKind::empty) {
      problem("The store " + store.string() + " is empty." +
              (hasCopy ? " The next start uses its good copy." : ""));
    } else {
      verify("The store " + store.string(), store);
    }
    verifyCopy(goodCopyOf(store));
    for (const auto& damaged : damagedCopiesOf(store)) {
      say("A damaged store was set aside as " + damaged.filename().string() +
          "; remove it when nobody needs it.");
    }
    return std::move(verdict_);
  }

private:
  void say(std::string sentence) { verdict_.sentences.push_back(std::move(sentence)); }
  void problem(std::string sentence) {
    verdict_.isGood = false;
    say(std::move(sentence));
  }

  void verifyCopy(const std::filesystem::path& copy) {
    struct stat found {};
    const bool isFound = ::lstat(copy.c_str(), &found) == 0;
    if (!isFound && errno != ENOENT) {
      problem("The good copy cannot be used: " + unreadable(copy).message + ".");
    } else if (!isFound) {
      say("There is no good copy yet; one is made when the store is closed, or idle after a "
          "change.");
    } else {
      verify("The good copy of " + timeOf(found.st_mtime), copy);
    }
  }

  void verify(const std::string& name, const std::filesystem::path& path) {
    PreferencesFile file(path);
    std::set<std::string> keys;
    auto outcome = file.openSnapshot();
    if (outcome) {
      outcome = file.readAll([&](const PreferenceChange& change) {
        if (change.value) {
          keys.insert(change.key);
        } else {
          keys.erase(change.key);
        }
      });
    }
    if (!outcome) {
      problem(name + " cannot be used: " + outcome.error().message + ".");
      if (file.isDamaged())
        say("The next start or write recovers what can be had of it and of its good copy.");
      return;
    }
    const auto faults = file.faults();
    for (const std::string& fault : faults)
      problem(std::string(name).append(" is damaged: ").append(fault).append("."));
    if (faults.empty()) {
      const std::string_view noun = keys.size() == 1 ? " key" : " keys";
      say(name + " is in order: " + std::to_string(keys.size()).append(noun) +
          ", each with the value that was written.");
    }
    struct stat found {};
    if (::lstat(path.c_str(), &found) == 0 && (found.st_mode & 077) != 0) {
      problem(name + " can be opened by other users; the next start takes that from them.");
    }
  }

  PreferencesVerification verdict_;
};

}  // namespace

PreferencesVerification verifyPreferences(const std::filesystem::path& store) {
  std::error_code error;
  return Verification().of(std::filesystem::absolute(store, error));
}

}  // namespace foundation
