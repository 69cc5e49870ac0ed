// SPDX-License-Identifier: MIT
#include "qt/Application.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "bridge/Strings.hpp"
#include "window/FontReadAhead.hpp"
#include "window/Runtime.hpp"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QSocketNotifier>
#include <QTranslator>

#include <utility>

namespace qt {

namespace {

void prepare(Application::Display display) {
  if (display == Application::Display::offscreen) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Windows are placed in whole points at fractional scale factors too.
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv,
                                              Application::Display display) {
  if (QCoreApplication::instance()) return nullptr;
  prepare(display);
  const FontReadAhead fonts;
  auto application = std::make_unique<QApplication>(argc, argv);
  const auto& host = QEVSettings::HostIdentity::current();
  QCoreApplication::setApplicationName(toQString(host.id));
  QCoreApplication::setApplicationVersion(toQString(host.version));
  QGuiApplication::setDesktopFileName(toQString(host.id));
  return application;
}

// A qt::Application that was made before the QApplication.
Application* waiting = nullptr;

}  // namespace

bool Application::hasDisplay() {
  const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

Application::Application(int& argc, char** argv, Display display)
    : owned_(makeApplication(argc, argv, display)),
      runtime_(owned_ ? Runtime::ofOwned(display == Display::screen) : Runtime::shared()) {}

Application::Application() {
  if (QCoreApplication::instance()) {
    runtime_ = Runtime::shared();
    return;
  }
  waiting = this;
  static const bool isRegistered = [] {
    qAddPreRoutine(connectToNewApplication);
    return true;
  }();
  static_cast<void>(isRegistered);
}

Application::~Application() {
  if (waiting == this) waiting = nullptr;
}

// The QApplication is not complete yet, so the connection waits for its event loop.
void Application::connectToNewApplication() {
  QMetaObject::invokeMethod(
      qApp,
      [] {
        if (Application* const application = std::exchange(waiting, nullptr))
          application->runtime_ = Runtime::shared();
      },
      Qt::QueuedConnection);
}

int Application::run() { return QApplication::exec(); }

void Application::quit() { QApplication::quit(); }

std::vector<std::string> Application::preferredLanguages() {
  std::vector<std::string> codes;
  for (const QString& code : QLocale::system().uiLanguages()) codes.push_back(code.toStdString());
  return codes;
}

void Application::setLanguage(const std::string& code) {
  const QLocale locale(toQString(code));
  QLocale::setDefault(locale);
  translator_ = std::make_unique<QTranslator>();
  if (translator_->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator_.get());
  }
  QGuiApplication::setLayoutDirection(locale.textDirection());
}

viewkit::LayoutDirection Application::layoutDirection() {
  return QGuiApplication::layoutDirection() == Qt::RightToLeft
             ? viewkit::LayoutDirection::rightToLeft
             : viewkit::LayoutDirection::leftToRight;
}

bool Application::reducedMotion() const { return runtime_ && runtime_->reducedMotion(); }

QEVSettings::Subscription Application::watch(int descriptor, std::function<void()> readable) {
  const QPointer<QSocketNotifier> notifier =
      new QSocketNotifier(descriptor, QSocketNotifier::Read, qApp);
  QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                   [readable = std::move(readable)] {
                     const auto call = readable;
                     call();
                   });
  return QEVSettings::Subscription([notifier] {
    if (!notifier) return;
    notifier->setEnabled(false);
    // The notifier may be calling this function.
    notifier->deleteLater();
  });
}

void Application::processEvents() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace qt
