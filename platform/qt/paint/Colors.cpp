// SPDX-License-Identifier: MIT
#include "paint/Colors.hpp"

#include "appkit/Application.hpp"
#include "paint/Look.hpp"

namespace qt {

QColor colorOf(const appkit::RGBA& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.opacity));
}

QColor colorOf(const appkit::Color& color) {
  return colorOf(color.resolved(appkit::Application::sharedApplication().palette()));
}

bool isHighContrast() {
  return appkit::Application::sharedApplication().contrast() == appkit::Contrast::high;
}

QColor blended(const QColor& under, const QColor& over, qreal opacity) {
  const auto mix = [&](float a, float b) {
    return a + (b - a) * static_cast<float>(opacity * over.alphaF());
  };
  return QColor::fromRgbF(mix(under.redF(), over.redF()), mix(under.greenF(), over.greenF()),
                          mix(under.blueF(), over.blueF()));
}

QPalette paletteOf(const appkit::Palette& palette) {
  const QColor window = colorOf(palette.windowBackground);
  const QColor group = colorOf(palette.groupBackground);
  const QColor base = colorOf(palette.controlBackground);
  const QColor text = colorOf(palette.primary);
  const QColor secondary = colorOf(palette.secondary);
  const QColor accent = colorOf(palette.accent);
  const bool dark = window.lightnessF() < text.lightnessF();
  const QColor button =
      dark ? blended(group, Qt::white, look::palette::kDarkButtonStrength) : QColor(Qt::white);

  QPalette result;
  const auto set = [&](QPalette::ColorRole role, const QColor& color) {
    result.setColor(QPalette::All, role, color);
  };
  set(QPalette::Window, window);
  set(QPalette::WindowText, text);
  set(QPalette::Base, base);
  set(QPalette::AlternateBase, blended(base, text, look::palette::kAlternateRowStrength));
  set(QPalette::Text, text);
  set(QPalette::PlaceholderText, secondary);
  set(QPalette::Button, button);
  set(QPalette::ButtonText, text);
  set(QPalette::BrightText, colorOf(palette.systemRed));
  set(QPalette::ToolTipBase,
      dark ? blended(group, Qt::white, look::palette::kDarkTooltipStrength) : group);
  set(QPalette::ToolTipText, text);
  set(QPalette::Highlight, accent);
  set(QPalette::HighlightedText, colorOf(palette.selectedText));
  set(QPalette::Link, accent);
  set(QPalette::LinkVisited, accent);
  set(QPalette::Light, blended(button, Qt::white, look::palette::kLightStrength));
  set(QPalette::Midlight, blended(button, Qt::white, look::palette::kMidlightStrength));
  set(QPalette::Mid, blended(window, text, look::palette::kMidStrength));
  set(QPalette::Dark, blended(window, text, look::palette::kDarkStrength));
  set(QPalette::Shadow,
      dark ? QColor(Qt::black) : blended(window, text, look::palette::kShadowStrength));

  const QColor faint = blended(window, text, look::palette::kDisabledTextStrength);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    result.setColor(QPalette::Disabled, role, faint);
  }
  result.setColor(QPalette::Disabled, QPalette::Highlight,
                  blended(window, text, look::palette::kDisabledSelectionStrength));
  result.setColor(QPalette::Disabled, QPalette::HighlightedText, faint);
  return result;
}

}  // namespace qt
