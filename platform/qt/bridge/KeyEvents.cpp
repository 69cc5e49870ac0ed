// SPDX-License-Identifier: MIT
#include "bridge/KeyEvents.hpp"

#include "bridge/Strings.hpp"

#include <array>

namespace qt {

namespace {

struct Key {
  Qt::Key key;
  int code;
};
// Qt has a key of its own for Shift+Tab. It comes last, so that the code of Tab leads to the plain
// key.
constexpr std::array<Key, 18> kKeys{{{Qt::Key_Down, appkit::Event::kDownArrow},
                                     {Qt::Key_Up, appkit::Event::kUpArrow},
                                     {Qt::Key_Left, appkit::Event::kLeftArrow},
                                     {Qt::Key_Right, appkit::Event::kRightArrow},
                                     {Qt::Key_Escape, appkit::Event::kEscape},
                                     {Qt::Key_Home, appkit::Event::kHome},
                                     {Qt::Key_End, appkit::Event::kEnd},
                                     {Qt::Key_PageUp, appkit::Event::kPageUp},
                                     {Qt::Key_PageDown, appkit::Event::kPageDown},
                                     {Qt::Key_F1, appkit::Event::kF1},
                                     {Qt::Key_F4, appkit::Event::kF4},
                                     {Qt::Key_F, appkit::Event::kF},
                                     {Qt::Key_F10, appkit::Event::kF10},
                                     {Qt::Key_Menu, appkit::Event::kMenu},
                                     {Qt::Key_W, appkit::Event::kW},
                                     {Qt::Key_Z, appkit::Event::kZ},
                                     {Qt::Key_Tab, appkit::Event::kTab},
                                     {Qt::Key_Backtab, appkit::Event::kTab}}};

struct Modifier {
  Qt::KeyboardModifier modifier;
  appkit::Event::Modifier flag;
};
constexpr std::array<Modifier, 4> kModifiers{{{Qt::ShiftModifier, appkit::Event::shift},
                                              {Qt::ControlModifier, appkit::Event::control},
                                              {Qt::AltModifier, appkit::Event::option},
                                              {Qt::MetaModifier, appkit::Event::command}}};

}  // namespace

appkit::Event eventFrom(const QKeyEvent& press) {
  appkit::Event event{.characters = press.text().toStdString()};
  for (const Key& each : kKeys) {
    if (press.key() == each.key) event.keyCode = each.code;
  }
  for (const Modifier& each : kModifiers) {
    if (press.modifiers() & each.modifier) event.modifiers |= each.flag;
  }
  return event;
}

QKeyEvent pressFrom(const appkit::Event& event, const QKeyEvent& press) {
  int key = press.key();
  if (event.keyCode != eventFrom(press).keyCode) {
    for (const Key& each : kKeys) {
      if (event.keyCode != each.code) continue;
      key = each.key;
      break;
    }
  }
  Qt::KeyboardModifiers modifiers = press.modifiers() & Qt::KeypadModifier;
  for (const Modifier& each : kModifiers) {
    if (event.modifiers & each.flag) modifiers |= each.modifier;
  }
  return {QEvent::KeyPress, key, modifiers, toQString(event.characters), press.isAutoRepeat()};
}

}  // namespace qt
