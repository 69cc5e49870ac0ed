// SPDX-License-Identifier: MIT
#include "window/KeyMonitors.hpp"

#include "appkit/Event.hpp"
#include "bridge/KeyEvents.hpp"
#include "controls/menus/MenuOpener.hpp"
#include "viewkit/KeyRouter.hpp"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace qt {

namespace {

bool areAlike(const appkit::Event& a, const appkit::Event& b) {
  return a.keyCode == b.keyCode && a.modifiers == b.modifiers && a.characters == b.characters;
}

bool opensFocusedMenu(const QKeyEvent& press) {
  return dynamic_cast<const MenuOpener*>(QApplication::focusWidget()) &&
         viewkit::isOfMenuAlone(eventFrom(press));
}

// Whether Qt hands a press that this receiver leaves alone to the receiver's parent.
bool isPassedToParent(const QObject* receiver) {
  const auto* const widget = qobject_cast<const QWidget*>(receiver);
  return widget && !widget->isWindow() && widget->parentWidget();
}

}  // namespace

// The choosers of colours and fonts are the platform's own, and so are a host's dialogs.
bool KeyMonitors::isForPlatform() const {
  if (QApplication::activePopupWidget()) return true;
  const auto* const dialog = qobject_cast<const QDialog*>(QApplication::activeWindow());
  return dialog && std::ranges::none_of(pages_, [dialog](const QWidget* page) {
           return dialog->isAncestorOf(page);
         });
}

void KeyMonitors::add(const QWidget& page) {
  pages_.push_back(&page);
  // The filter that was installed last comes first.
  qApp->installEventFilter(this);
}

void KeyMonitors::deliver(QObject& receiver, QEvent& press) {
  const QEvent* const outer = std::exchange(passing_, &press);
  // `sendEvent` would make a press of the user's into one of the program's.
  qApp->notify(&receiver, &press);
  passing_ = outer;
}

bool KeyMonitors::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || event == passing_) return false;
  if (event == ignored_) {
    if (!isPassedToParent(watched)) ignored_ = nullptr;
    event->ignore();
    return true;
  }
  const auto& press = *static_cast<QKeyEvent*>(event);
  if (isForPlatform() || opensFocusedMenu(press)) return false;
  const appkit::Event pressed = eventFrom(press);
  const auto passedOn = appkit::Event::passThroughMonitors(appkit::Event::kKeyDownMask, pressed);
  if (!passedOn) {
    event->accept();
    return true;
  }
  // The receiver gets the press here rather than after this filter, so that `passing_` ends with
  // it.
  const QPointer<QObject> receiver(watched);
  if (areAlike(*passedOn, pressed)) {
    deliver(*watched, *event);
  } else {
    QKeyEvent other = pressFrom(*passedOn, press);
    deliver(*watched, other);
    event->setAccepted(other.isAccepted());
  }
  if (!receiver) event->accept();
  if (!event->isAccepted() && isPassedToParent(receiver)) ignored_ = event;
  return true;
}

}  // namespace qt
