#pragma once

#include "sparkle/SPUUserDriver.hpp"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace qt {

// Shows the outcome of a check for updates in a dialog that leaves the rest of the application
// usable; a new outcome takes the place of one that is still shown. What comes from the feed is
// shown as plain text. Destroyed before the application; main thread.
class UpdateDialog final : public sparkle::SPUUserDriver {
public:
  // Gives a text in the person's language; the key is the English text, "%1" and the like included.
  using Localize = std::function<std::string(std::string_view key)>;

  explicit UpdateDialog(Localize localize);
  ~UpdateDialog() override;

  void showUpdateFound(const sparkle::FoundUpdate& update) override;
  void showUpdateNotFound(const std::string& currentVersion) override;
  void showUpdaterError(const foundation::Error& error) override;

private:
  struct Outcome;
  struct Shown;

  void show(const Outcome& outcome);

  Localize localize_;
  std::unique_ptr<Shown> shown_;
};

}  // namespace qt
