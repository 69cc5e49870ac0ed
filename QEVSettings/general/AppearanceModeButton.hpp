#pragma once

#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace QEVSettings {

// How the application looks: always light, always dark, or as the system does.
enum class AppearanceMode : std::uint8_t { light, dark, automatic };

// In the order in which they are shown.
inline constexpr std::array kAppearanceModes{AppearanceMode::light, AppearanceMode::dark,
                                             AppearanceMode::automatic};

// The picture button of one appearance mode. It tints itself while the pointer is over it; a hover
// rebuilds this button alone.
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
