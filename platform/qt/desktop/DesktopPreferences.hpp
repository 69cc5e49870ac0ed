#pragma once

#include "appkit/Application.hpp"

#include <QDBusMessage>
#include <QTimer>

#include <functional>
#include <optional>

namespace qt {

// What the person has told the desktop about the looks of all programs, by way of the desktop's
// settings portal; where there is none, nothing is known.
class DesktopPreferences {
public:
  // `changed` is called after the desktop announced a change.
  explicit DesktopPreferences(std::function<void()> changed);
  DesktopPreferences(const DesktopPreferences&) = delete;
  DesktopPreferences& operator=(const DesktopPreferences&) = delete;

  std::optional<appkit::Appearance> appearance() const { return appearance_; }
  bool reducedMotion() const { return reducedMotion_; }

private:
  void ask();
  void read(const QDBusMessage& reply);

  std::function<void()> changed_;
  std::optional<appkit::Appearance> appearance_;
  bool reducedMotion_ = false;
  // Several settings change together when a theme does: they are asked for once.
  QTimer announced_;
};

}  // namespace qt
