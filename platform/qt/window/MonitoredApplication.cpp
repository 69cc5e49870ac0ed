#include "window/MonitoredApplication.hpp"

#include "appkit/Event.hpp"
#include "controls/menus/MenuOpener.hpp"
#include "viewkit/KeyRouter.hpp"
#include "window/KeyEvents.hpp"

#include <QDialog>
#include <QKeyEvent>

#include <utility>

namespace qt {

namespace {

bool areAlike(const appkit::Event& a, const appkit::Event& b) {
  return a.keyCode == b.keyCode && a.modifiers == b.modifiers && a.characters == b.characters;
}

// Menus and the choosers of colours and fonts are the platform's own: what is pressed in them is
// for nobody else.
bool isForPlatform() {
  return QApplication::activePopupWidget() ||
         qobject_cast<const QDialog*>(QApplication::activeWindow());
}

bool isOfFocusedMenu(const QKeyEvent& press) {
  return dynamic_cast<const MenuOpener*>(QApplication::focusWidget()) &&
         viewkit::isOfMenuAlone(eventFrom(press));
}

}  // namespace

bool MonitoredApplication::notify(QObject* receiver, QEvent* event) {
  const bool isNewPalette = event->type() == QEvent::ApplicationPaletteChange && receiver == this;
  const bool isNewTheme = event->type() == QEvent::ThemeChange && receiver->isWindowType();
  if ((isNewPalette || isNewTheme) && newColors_) newColors_();
  const bool isNewPress = event->type() == QEvent::KeyPress && event != passing_ &&
                          !isForPlatform() && !isOfFocusedMenu(*static_cast<QKeyEvent*>(event));
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
  QKeyEvent other = pressFrom(*passedOn, press);
  const QEvent* const outer = std::exchange(passing_, &other);
  const bool done = QApplication::notify(receiver, &other);
  passing_ = outer;
  event->setAccepted(other.isAccepted());
  return done;
}

}  // namespace qt
