// SPDX-License-Identifier: MIT
#include "controls/menus/MenuLabel.hpp"

#include "bridge/MirroredTree.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QPaintEvent>
#include <QPainter>

namespace qt {

std::string MenuLabel::currentTitle(const viewkit::MenuControl& /*menu*/) const {
  return node()->accessibility.value;
}

void MenuLabel::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  tree().paint(painter, *this, event->rect(), Style::contentOpacity(styleOption()));
  Style::drawKeyboardFocus(painter, *this, rect());
}

}  // namespace qt
