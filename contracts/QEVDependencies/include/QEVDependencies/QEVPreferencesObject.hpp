// SPDX-License-Identifier: MIT
#pragma once

namespace QEVDependencies {

// The base of the objects that plug-ins keep their preferences in. The settings ask an object for
// the interfaces that it implements:
//
//     if (auto settings = std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(object))
//       show(settings->analyzerSettingsConfig());
class QEVPreferencesObject {
public:
  QEVPreferencesObject() = default;
  QEVPreferencesObject(const QEVPreferencesObject&) = delete;
  QEVPreferencesObject& operator=(const QEVPreferencesObject&) = delete;
  virtual ~QEVPreferencesObject() = default;
};

}  // namespace QEVDependencies
