// SPDX-License-Identifier: MIT
#include "Page.hpp"
#include "foundation/UserDefaults.hpp"
#include "window/Analyzers.hpp"
#include "window/Report.hpp"

#include <QEventLoop>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kPatienceMilliseconds = 10'000;
// The rows that are visible without scrolling.
constexpr int kAnalyzersInTurn = 8;
constexpr int kRowHeight = 40;

// Returns when the window has shown the next frame.
void waitForFrame(QQuickWindow& window) {
  QEventLoop loop;
  QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
  QTimer::singleShot(kPatienceMilliseconds, &loop, [] {
    std::fputs("nothing was painted\n", stderr);
    std::exit(1);
  });
  loop.exec();
}

void settle() {
  QEventLoop loop;
  QTimer::singleShot(50, &loop, &QEventLoop::quit);
  loop.exec();
}

void send(QQuickWindow& window, QEvent::Type type, QPointF at) {
  const bool isMove = type == QEvent::MouseMove;
  QMouseEvent event(type, at, window.mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                    type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                    Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &event);
}

}  // namespace

int main(int argc, char** argv) {
  const Task task = Task::of(argc, argv);
  registerAnalyzers(task.analyzers);
  const QGuiApplication application(argc, argv);
  const Start start{.ready = Clock::now()};
  // Of the renderers that work without a graphics card, this one is the faster.
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);

  const auto store = foundation::UserDefaults::inMemory();
  peers::Page page(*store);
  QQuickView view;
  view.setTitle(QStringLiteral("Settings"));
  view.setResizeMode(QQuickView::SizeRootObjectToView);
  view.resize(kWindowWidth, kWindowHeight);
  view.setInitialProperties({{QStringLiteral("page"), QVariant::fromValue<QObject*>(&page)}});
  view.setSource(QUrl(QStringLiteral("qrc:/Peer/Page.qml")));
  if (view.status() != QQuickView::Ready) return 1;
  view.show();
  waitForFrame(view);
  reportFirstFrame(task, start);

  const auto* const list = view.rootObject()->findChild<QQuickItem*>(QStringLiteral("list"));
  for (int i = 1; i <= task.repetitions; ++i) {
    const QPointF at =
        list->mapToScene({list->width() / 2, kRowHeight * (i % kAnalyzersInTurn + 0.5)});
    send(view, QEvent::MouseMove, at);
    settle();
    Stopwatch stopwatch;
    send(view, QEvent::MouseButtonPress, at);
    send(view, QEvent::MouseButtonRelease, at);
    if (page.selected() != i % kAnalyzersInTurn) {
      std::fputs("the click selected nothing\n", stderr);
      return 1;
    }
    waitForFrame(view);
    stopwatch.stop();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    stopwatch.report("selection");
  }
}
