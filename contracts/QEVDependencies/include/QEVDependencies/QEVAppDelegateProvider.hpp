// SPDX-License-Identifier: MIT
#pragma once

namespace QEVDependencies {

// Implemented by the host application for the settings module. Main thread.
//
//     struct AlwaysDark final : QEVAppDelegateProvider {
//       void setupAppearanceFromUserDefaults() override {
//         appkit::Application::sharedApplication().setAppearance(appkit::Appearance::dark);
//       }
//     };
class QEVAppDelegateProvider {
public:
  QEVAppDelegateProvider() = default;
  QEVAppDelegateProvider(const QEVAppDelegateProvider&) = delete;
  QEVAppDelegateProvider& operator=(const QEVAppDelegateProvider&) = delete;
  virtual ~QEVAppDelegateProvider() = default;

  // Applies the appearance that the store names to the application. Called after the user chose
  // light or dark and the choice was stored.
  virtual void setupAppearanceFromUserDefaults() = 0;
};

}  // namespace QEVDependencies
