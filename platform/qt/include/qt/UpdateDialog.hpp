// SPDX-License-Identifier: MIT
#pragma once

#include "sparkle/SPUUserDriver.hpp"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace qt {

// Shows the outcome of a check for updates in a modeless dialog. A new outcome replaces one that is
// still shown. Texts of the feed are shown as plain text. Needs a qt::Application that outlives it.
// Main thread only.
//
//     configuration.userDriver = std::make_shared<qt::UpdateDialog>([](std::string_view key) {
//       return foundation::Bundle::mainBundle().localizedString(key);
//     });
class UpdateDialog final : public sparkle::SPUUserDriver {
public:
  // Translates a text. The key is the English text with its placeholders, "%1" and so on.
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
