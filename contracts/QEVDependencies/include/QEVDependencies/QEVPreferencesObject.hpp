#pragma once

namespace QEVDependencies {

// Any object that a plug-in keeps its preferences in. What it can do is found out by asking it for
// an interface:
//
//     class DNSPreferences final : public QEVPreferencesObject, public QEVPluginPreferencesProtocol
//     { … };
//
//     std::shared_ptr<QEVPreferencesObject> object = …;
//     if (auto settings = std::dynamic_pointer_cast<QEVPluginPreferencesProtocol>(object)) …
class QEVPreferencesObject {
public:
  QEVPreferencesObject() = default;
  QEVPreferencesObject(const QEVPreferencesObject&) = delete;
  QEVPreferencesObject& operator=(const QEVPreferencesObject&) = delete;
  virtual ~QEVPreferencesObject() = default;
};

}  // namespace QEVDependencies
