// SPDX-License-Identifier: MIT
#include "window/isEditingText.hpp"

#include "appkit/Application.hpp"
#include "appkit/Responder.hpp"
#include "appkit/Window.hpp"

namespace QEVSettings {

bool isEditingText() {
  const appkit::Window* window = appkit::Application::sharedApplication().keyWindow();
  return window && dynamic_cast<const appkit::Text*>(window->firstResponder());
}

}  // namespace QEVSettings
