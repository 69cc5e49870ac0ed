#pragma once

#include "appkit/Color.hpp"
#include "appkit/Font.hpp"
#include "foundation/ObservableObject.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace appkit {

class Window;

enum class Appearance { light, dark };

// The running application: what all of its windows share. Main thread.
class Application {
public:
  static Application& sharedApplication();

  // Light or dark for every window, or nothing to follow the desktop.
  void setAppearance(std::optional<Appearance> appearance);
  std::optional<Appearance> appearance() const { return appearance_; }

  // What the desktop prefers, as the back end reports it.
  void setSystemAppearance(Appearance appearance);

  // What is in force: the application's own choice, else the desktop's.
  Appearance effectiveAppearance() const { return appearance_.value_or(systemAppearance_); }
  const Palette& palette() const;

  // Tells listeners after the effective appearance changed.
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
  foundation::Announcer effectiveAppearanceDidChange_;
  std::shared_ptr<const FontCatalog> fontCatalog_;
  Window* keyWindow_ = nullptr;
};

}  // namespace appkit
