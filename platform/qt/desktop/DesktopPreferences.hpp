// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Application.hpp"

#include <QDBusMessage>
#include <QTimer>

#include <functional>
#include <optional>

namespace qt {

// What the user prefers in all programs, read from the settings portal of the desktop. Without a
// portal nothing is known. Main thread only.
class DesktopPreferences {
public:
  // Waits for the answer of the portal for a moment. `changed` is called after each later change.
  explicit DesktopPreferences(std::function<void()> changed);
  DesktopPreferences(const DesktopPreferences&) = delete;
  DesktopPreferences& operator=(const DesktopPreferences&) = delete;

  std::optional<appkit::Appearance> appearance() const { return appearance_; }
  appkit::Contrast contrast() const { return contrast_; }
  std::optional<appkit::RGBA> accent() const { return accent_; }
  bool reducedMotion() const { return reducedMotion_; }
  // The font for interfaces, such as "Sans Bold 11"; empty when the desktop names none.
  const QString& fontName() const { return fontName_; }
  double textScale() const { return textScale_; }

private:
  void ask();
  void read(const QDBusMessage& reply);

  std::function<void()> changed_;
  std::optional<appkit::Appearance> appearance_;
  appkit::Contrast contrast_ = appkit::Contrast::normal;
  std::optional<appkit::RGBA> accent_;
  bool reducedMotion_ = false;
  QString fontName_;
  double textScale_ = 1;
  // A new theme changes several settings at once. The timer asks for them all together.
  QTimer announced_;
};

}  // namespace qt
