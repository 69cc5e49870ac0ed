// SPDX-License-Identifier: MIT
#include "window/DesktopDisplay.hpp"

#include "qt/Application.hpp"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

namespace zorvantine {

namespace {

// Whether Qt has nothing but Wayland to open a window on.
bool needsWayland() {
  const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
  if (!platform.isEmpty()) return platform.startsWith(QLatin1String("wayland"));
  return qEnvironmentVariableIsEmpty("DISPLAY");
}

bool hasWaylandPlugin() {
  const auto holdsPlugin = [](const QString& folder) {
    const QDir platforms(folder + QLatin1String("/platforms"));
    return !platforms.entryList({QStringLiteral("libqwayland*")}, QDir::Files).isEmpty();
  };
  const QStringList folders = QCoreApplication::libraryPaths();
  return std::any_of(folders.begin(), folders.end(), holdsPlugin);
}

}  // namespace

DesktopDisplay desktopDisplay() {
  if (!qt::Application::hasDisplay()) return DesktopDisplay::none;
  return needsWayland() && !hasWaylandPlugin() ? DesktopDisplay::needsWaylandPlugin
                                               : DesktopDisplay::usable;
}

}  // namespace zorvantine
