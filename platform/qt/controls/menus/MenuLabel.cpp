#include "controls/menus/MenuLabel.hpp"

#include "mirror/Mirror.hpp"
#include "paint/Style.hpp"

#include <QPaintEvent>
#include <QPainter>

namespace qt {

std::string MenuLabel::currentTitle(const viewkit::MenuControl& /*menu*/) const {
  return node()->accessibility.value;
}

void MenuLabel::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  mirror().paint(painter, *this, event->rect(), Style::contentOpacity(styleOption()));
  if (Style::showsFocus(*this))
    Style::drawFocusRing(painter, rect(), Style::kCornerRadius, palette());
}

}  // namespace qt
