#include "window/MonitoredApplication.hpp"

#include "appkit/Event.hpp"
#include "bridge/KeyEvents.hpp"
#include "controls/menus/MenuOpener.hpp"
#include "viewkit/KeyRouter.hpp"

#include <QDialog>
#include <QKeyEvent>

#include <utility>

namespace qt {

namespace {

bool areAlike(const appkit::Event& a, const appkit::Event& b) {
  return a.keyCode == b.keyCode && a.modifiers == b.modifiers && a.characters == b.characters;
}

// Whether a menu or a dialog has the keyboard. Monitors do not see their keys.
bool isForPlatform() {
  return QApplication::activePopupWidget() ||
         qobject_cast<const QDialog*>(QApplication::activeWindow());
}

bool opensFocusedMenu(const QKeyEvent& press) {
  return dynamic_cast<const MenuOpener*>(QApplication::focusWidget()) &&
         viewkit::opensMenu(eventFrom(press));
}

}  // namespace

bool MonitoredApplication::notify(QObject* receiver, QEvent* event) {
  const bool isNewPalette = event->type() == QEvent::ApplicationPaletteChange && receiver == this;
  const bool isNewTheme = event->type() == QEvent::ThemeChange && receiver->isWindowType();
  if ((isNewPalette || isNewTheme) && newColors_) newColors_();
  const bool isNewPress = event->type() == QEvent::KeyPress && event != passing_ &&
                          !isForPlatform() && !opensFocusedMenu(*static_cast<QKeyEvent*>(event));
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
