// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"
#include "appkit/Font.hpp"
#include "foundation/ObservableObject.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace appkit {

class Window;

// Whether windows are light or dark. See Application.
enum class Appearance { light, dark };

// How much the colours of windows differ from each other.
//
//     if (Application::sharedApplication().contrast() == Contrast::high) borderWidth = 2;
enum class Contrast { normal, high };

// The running application: what all of its windows share. Main thread.
//
//     auto& application = Application::sharedApplication();
//     application.setAppearance(Appearance::dark);
//     const auto token = application.effectiveAppearanceDidChange().subscribe([] { repaint(); });
class Application {
public:
  static Application& sharedApplication();

  // Light or dark for every window, or nothing to follow the desktop.
  void setAppearance(std::optional<Appearance> appearance);
  std::optional<Appearance> appearance() const { return appearance_; }

  // What the desktop prefers, as the back end reports it.
  void setSystemAppearance(Appearance appearance);
  void setSystemContrast(Contrast contrast);
  // A colour in place of the application's own accent colour. It is made lighter or darker where
  // text in it could not be read.
  void setSystemAccent(std::optional<RGBA> accent);

  // What is in force: the application's own choice, else the desktop's.
  Appearance effectiveAppearance() const { return appearance_.value_or(systemAppearance_); }
  Contrast contrast() const { return contrast_; }
  const Palette& palette() const { return palette_; }

  // Tells listeners after the effective appearance, or a colour of the palette, changed.
  foundation::Announcer& effectiveAppearanceDidChange() { return effectiveAppearanceDidChange_; }

  const FontCatalog& fontCatalog() const { return *fontCatalog_; }
  // Nothing puts the default catalogue back.
  void setFontCatalog(std::shared_ptr<const FontCatalog> catalog);

  // The window that receives the keyboard, if one of ours does.
  Window* keyWindow() const { return keyWindow_; }
  void windowDidBecomeKey(Window& window) { keyWindow_ = &window; }
  // Also for a window that goes away.
  void windowDidResignKey(const Window& window);

private:
  Application();
  void change(const std::function<void()>& apply);

  std::optional<Appearance> appearance_;
  Appearance systemAppearance_ = Appearance::light;
  Contrast contrast_ = Contrast::normal;
  std::optional<RGBA> accent_;
  Palette palette_;
  foundation::Announcer effectiveAppearanceDidChange_;
  std::shared_ptr<const FontCatalog> fontCatalog_;
  Window* keyWindow_ = nullptr;
};

}  // namespace appkit
