// SPDX-License-Identifier: MIT
#include "appkit/Application.hpp"

#include "appkit/Window.hpp"

#include <utility>

namespace appkit {

Window::~Window() { Application::sharedApplication().windowDidResignKey(*this); }

Application& Application::sharedApplication() {
  static Application application;
  return application;
}

Application::Application()
    : palette_(Palette::light()), fontCatalog_(std::make_shared<const FontCatalog>()) {}

void Application::setAppearance(std::optional<Appearance> appearance) {
  change([&] { appearance_ = appearance; });
}

void Application::setSystemAppearance(Appearance appearance) {
  change([&] { systemAppearance_ = appearance; });
}

void Application::setSystemContrast(Contrast contrast) {
  change([&] { contrast_ = contrast; });
}

void Application::setSystemAccent(std::optional<RGBA> accent) {
  change([&] { accent_ = accent; });
}

void Application::change(const std::function<void()>& apply) {
  const Appearance before = effectiveAppearance();
  apply();
  const bool isDark = effectiveAppearance() == Appearance::dark;
  const bool isHigh = contrast_ == Contrast::high;
  Palette palette = isDark ? (isHigh ? Palette::highContrastDark() : Palette::dark())
                           : (isHigh ? Palette::highContrastLight() : Palette::light());
  if (accent_) palette = palette.withAccent(*accent_);
  const bool isOther = std::exchange(palette_, palette) != palette;
  if (isOther || effectiveAppearance() != before) effectiveAppearanceDidChange_.announce();
}

void Application::setFontCatalog(std::shared_ptr<const FontCatalog> catalog) {
  fontCatalog_ = catalog ? std::move(catalog) : std::make_shared<const FontCatalog>();
}

void Application::windowDidResignKey(const Window& window) {
  if (keyWindow_ == &window) keyWindow_ = nullptr;
}

}  // namespace appkit
