#include "MonitoredApplication.hpp"

#include "Fonts.hpp"
#include "appkit/Event.hpp"

#include <QDialog>
#include <QKeyEvent>

#include <array>
#include <utility>

namespace qt {

namespace {

struct Key {
  Qt::Key key;
  int code;
};
constexpr std::array<Key, 4> kKeys{{{Qt::Key_Down, appkit::Event::kDownArrow},
                                    {Qt::Key_Up, appkit::Event::kUpArrow},
                                    {Qt::Key_Left, appkit::Event::kLeftArrow},
                                    {Qt::Key_Right, appkit::Event::kRightArrow}}};

struct Modifier {
  Qt::KeyboardModifier modifier;
  appkit::Event::Modifier flag;
};
constexpr std::array<Modifier, 4> kModifiers{{{Qt::ShiftModifier, appkit::Event::shift},
                                              {Qt::ControlModifier, appkit::Event::control},
                                              {Qt::AltModifier, appkit::Event::option},
                                              {Qt::MetaModifier, appkit::Event::command}}};

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

QKeyEvent replaced(const QKeyEvent& press, const appkit::Event& event) {
  int key = press.key();
  for (const Key& each : kKeys) {
    if (event.keyCode == each.code) key = each.key;
  }
  Qt::KeyboardModifiers modifiers = press.modifiers() & Qt::KeypadModifier;
  for (const Modifier& each : kModifiers) {
    if (event.modifiers & each.flag) modifiers |= each.modifier;
  }
  return {QEvent::KeyPress, key, modifiers, text(event.characters), press.isAutoRepeat()};
}

bool areAlike(const appkit::Event& a, const appkit::Event& b) {
  return a.keyCode == b.keyCode && a.modifiers == b.modifiers && a.characters == b.characters;
}

// Menus and the choosers of colours and fonts are the platform's own: what is pressed in them is for
// nobody else.
bool isForPlatform() {
  return QApplication::activePopupWidget() || qobject_cast<const QDialog*>(QApplication::activeWindow());
}

}  // namespace

bool MonitoredApplication::notify(QObject* receiver, QEvent* event) {
  const bool isNewPalette = event->type() == QEvent::ApplicationPaletteChange && receiver == this;
  const bool isNewTheme = event->type() == QEvent::ThemeChange && receiver->isWindowType();
  if ((isNewPalette || isNewTheme) && newColors_) newColors_();
  const bool isNewPress = event->type() == QEvent::KeyPress && event != passing_ && !isForPlatform();
  return isNewPress ? notifyOfPress(receiver, event) : QApplication::notify(receiver, event);
}

bool MonitoredApplication::notifyOfPress(QObject* receiver, QEvent* event) {
  const auto& press = *static_cast<QKeyEvent*>(event);
  const appkit::Event pressed = eventFrom(press);
  const auto passedOn = appkit::Event::passThroughMonitors(appkit::Event::kKeyDownMask, pressed);
  if (!passedOn) {
    event->accept();
    return true;
  }
  if (areAlike(*passedOn, pressed)) {
    const QEvent* const outer = std::exchange(passing_, event);
    const bool done = QApplication::notify(receiver, event);
    passing_ = outer;
    return done;
  }
  QKeyEvent other = replaced(press, *passedOn);
  const QEvent* const outer = std::exchange(passing_, &other);
  const bool done = QApplication::notify(receiver, &other);
  passing_ = outer;
  event->setAccepted(other.isAccepted());
  return done;
}

}  // namespace qt
