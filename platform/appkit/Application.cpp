#include "appkit/Application.hpp"

#include "appkit/Window.hpp"

#include <utility>

namespace appkit {

Window::~Window() { Application::sharedApplication().windowDidResignKey(*this); }

Application& Application::sharedApplication() {
  static Application application;
  return application;
}

Application::Application() : fontCatalog_(std::make_shared<const FontCatalog>()) {}

void Application::setAppearance(std::optional<Appearance> appearance) {
  change([&] { appearance_ = appearance; });
}

void Application::setSystemAppearance(Appearance appearance) {
  change([&] { systemAppearance_ = appearance; });
}

void Application::change(const std::function<void()>& apply) {
  const Appearance before = effectiveAppearance();
  apply();
  if (effectiveAppearance() != before) effectiveAppearanceDidChange_.announce();
}

const Palette& Application::palette() const {
  return effectiveAppearance() == Appearance::dark ? Palette::dark() : Palette::light();
}

void Application::setFontCatalog(std::shared_ptr<const FontCatalog> catalog) {
  fontCatalog_ = catalog ? std::move(catalog) : std::make_shared<const FontCatalog>();
}

void Application::windowDidResignKey(const Window& window) {
  if (keyWindow_ == &window) keyWindow_ = nullptr;
}

}  // namespace appkit
