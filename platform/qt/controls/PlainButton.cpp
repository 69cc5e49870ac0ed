// SPDX-License-Identifier: MIT
#include "controls/PlainButton.hpp"

#include "bridge/MirroredTree.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QPaintEvent>
#include <QPainter>

namespace qt {

void PlainButton::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  tree().paint(painter, *this, event->rect(), Style::contentOpacity(styleOption()));
  Style::drawKeyboardFocus(painter, *this, rect());
}

}  // namespace qt
