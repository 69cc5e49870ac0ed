#pragma once

namespace QEVDependencies {

// What the settings ask of the host application. Main thread.
class QEVAppDelegateProvider {
public:
  QEVAppDelegateProvider() = default;
  QEVAppDelegateProvider(const QEVAppDelegateProvider&) = delete;
  QEVAppDelegateProvider& operator=(const QEVAppDelegateProvider&) = delete;
  virtual ~QEVAppDelegateProvider() = default;

  // The user chose light or dark, and the choice is in the store: the application takes on the look
  // that the store names.
  virtual void setupAppearanceFromUserDefaults() = 0;
};

}  // namespace QEVDependencies
