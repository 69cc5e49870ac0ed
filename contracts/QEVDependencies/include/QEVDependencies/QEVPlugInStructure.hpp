// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVPreferencesObject.hpp"
#include "foundation/UUID.hpp"

#include <memory>
#include <string>

namespace QEVDependencies {

// A loaded analyzer plug-in. Its texts are shown as they are.
//
//     registry.registerPlugIn({.id = foundation::UUID::random(),
//                              .plugInTitle = "DNS",
//                              .plugInVersion = "1.4",
//                              .plugInPreferencesInstance = preferences});
struct QEVPlugInStructure {
  // Unique among the loaded plug-ins, and the same as long as the application runs.
  foundation::UUID id;
  std::string plugInTitle;
  std::string plugInDescription;
  std::string plugInAuthor;
  std::string plugInVersion;
  // Empty when the plug-in has no preferences, and expired once it is unloaded: the registry of
  // plug-ins owns the object, a record only refers to it.
  std::weak_ptr<QEVPreferencesObject> plugInPreferencesInstance;
};

}  // namespace QEVDependencies
