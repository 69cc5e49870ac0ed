// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace QEVSettings {

// The appearance of the application: always light, always dark, or that of the system.
enum class AppearanceMode : std::uint8_t { light, dark, automatic };

// In the order in which they are shown.
inline constexpr std::array kAppearanceModes{AppearanceMode::light, AppearanceMode::dark,
                                             AppearanceMode::automatic};

// The picture button of one appearance mode. It is tinted while the pointer is over it. The button
// is a view of its own, so that hovering rebuilds one button and not the page.
struct AppearanceModeButton {
  AppearanceMode mode;
  std::string label;
  bool isSelected = false;
  std::function<void()> select;
  viewkit::State<bool> hovering = false;

  viewkit::View body() const;

private:
  viewkit::View content() const;
  viewkit::View thumbnail() const;
};

}  // namespace QEVSettings
