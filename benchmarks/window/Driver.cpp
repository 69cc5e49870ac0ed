// SPDX-License-Identifier: MIT
#include "Driver.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

constexpr int kPatienceMilliseconds = 10'000;
constexpr int kSettlingRounds = 4;
// The rows that are visible without scrolling.
constexpr int kAnalyzersInTurn = 8;
constexpr int kPixelsBesideSwitch = 60;
constexpr int kWidthsInTurn = 40;

// Records when the watched region has been painted.
class PaintWatch : public QObject {
public:
  explicit PaintWatch(std::function<bool(const QWidget&, const QRect&)> watched)
      : watched_(std::move(watched)) {
    qApp->installEventFilter(this);
  }

  bool hasSeen() const { return seen_; }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::Paint && !seen_) {
      const auto* widget = qobject_cast<QWidget*>(receiver);
      seen_ = widget && watched_(*widget, static_cast<QPaintEvent*>(event)->rect());
    }
    return false;
  }

private:
  std::function<bool(const QWidget&, const QRect&)> watched_;
  bool seen_ = false;
};

auto within(const QWidget& window, QRect rect) {
  return [&window, rect](const QWidget& painted, const QRect& part) {
    return painted.window() == &window &&
           part.translated(painted.mapTo(&window, QPoint())).intersects(rect);
  };
}

// Processes events until none is pending.
void settle() {
  for (int i = 0; i < kSettlingRounds; ++i) {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

void sendMouse(QWidget& window, QEvent::Type type, QPoint at) {
  const bool isMove = type == QEvent::MouseMove;
  QMouseEvent event(
      type, at, at, window.mapToGlobal(QPointF(at)), isMove ? Qt::NoButton : Qt::LeftButton,
      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(window.windowHandle(), &event);
}

void pointAt(QWidget& window, QPoint at) {
  sendMouse(window, QEvent::MouseMove, at);
  settle();
}

void click(QWidget& window, QPoint at) {
  sendMouse(window, QEvent::MouseButtonPress, at);
  sendMouse(window, QEvent::MouseButtonRelease, at);
}

void type(QWidget& window, int key, const QString& text) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(window.windowHandle(), &press);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(window.windowHandle(), &release);
}

}  // namespace

void Driver::waitFor(const Watched& watched) const {
  const PaintWatch watch(watched);
  while (!watch.hasSeen()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void Driver::measure(const char* name, const Watched& watched,
                     const std::function<void()>& act) const {
  QTimer patience;
  patience.setSingleShot(true);
  patience.callOnTimeout([name] {
    std::fprintf(stderr, "%s: nothing was painted\n", name);
    std::exit(1);
  });
  patience.start(kPatienceMilliseconds);
  const PaintWatch watch(watched);
  Stopwatch stopwatch;
  act();
  while (!watch.hasSeen()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  stopwatch.stop();
  settle();
  stopwatch.report(name);
}

void Driver::showFirstFrame(QWidget& window) {
  window.show();
  waitFor(within(window, window.rect()));
  reportFirstFrame(task_, start_);
}

void Driver::run(Contender& contender) {
  QWidget& window = contender.window();
  showFirstFrame(window);
  if (task_.repetitions == 0) return;

  settle();
  window.activateWindow();
  settle();
  for (int i = 1; i <= task_.repetitions; ++i) {
    const QPoint row = contender.analyzer(i % kAnalyzersInTurn).center();
    pointAt(window, row);
    measure("selection", within(window, contender.details()), [&] { click(window, row); });
  }

  const QRect toggle = contender.firstSwitch();
  pointAt(window, toggle.center());
  for (int i = 0; i < task_.repetitions; ++i) {
    const bool wasOn = contender.isFirstSwitchOn();
    const auto isFlipped = [&, isInSwitch = within(window, toggle)](const QWidget& painted,
                                                                    const QRect& part) {
      return isInSwitch(painted, part) && contender.isFirstSwitchOn() != wasOn;
    };
    measure("switch", isFlipped, [&] { click(window, toggle.center()); });
  }

  const QPoint beside(toggle.left() - kPixelsBesideSwitch, toggle.center().y());
  const QPoint elsewhere(1, 1);
  for (int i = 0; i < task_.repetitions; ++i) {
    pointAt(window, elsewhere);
    measure("hover", within(window, QRect(beside, QSize(1, 1))),
            [&] { sendMouse(window, QEvent::MouseMove, beside); });
  }

  const QRect field = contender.firstPorts();
  pointAt(window, field.center());
  click(window, field.center());
  settle();
  for (int i = 0; i < task_.repetitions; ++i) {
    const bool isAdding = i % 2 == 0;
    measure("key", within(window, field), [&] {
      type(window, isAdding ? Qt::Key_8 : Qt::Key_Backspace,
           isAdding ? QStringLiteral("8") : QString());
    });
  }

  pointAt(window, elsewhere);
  const QSize size = window.size();
  for (int i = 1; i <= task_.repetitions; ++i) {
    measure("resize", within(window, window.rect()),
            [&] { window.resize(size.width() + i % kWidthsInTurn, size.height()); });
  }
  reportMemory("memory-peak");

  runTabs(contender);
}

void Driver::runTabs(Contender& contender) const {
  constexpr int general = 0;
  constexpr int analyzer = 1;
  QWidget& window = contender.tabWindow();
  window.show();
  waitFor(within(window, window.rect()));
  settle();
  const auto select = [&](const char* name, int tab) {
    const QPoint at = contender.tab(tab).center();
    pointAt(window, at);
    measure(name, within(window, contender.tabContent()), [&] { click(window, at); });
  };
  select("tab-first", analyzer);
  for (int i = 0; i < task_.repetitions; ++i) {
    select("tab-general-again", general);
    select("tab-analyzer-again", analyzer);
  }
  select("tab-general-again", general);

  const QPoint menu = contender.timeZoneMenu().center();
  pointAt(window, menu);
  const auto inPopup = [&](const QWidget& painted, const QRect& /*part*/) {
    return painted.window() != &window && painted.window() != &contender.window();
  };
  for (int i = 0; i < task_.repetitions; ++i) {
    measure("menu", inPopup, [&] { click(window, menu); });
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    settle();
  }
}
