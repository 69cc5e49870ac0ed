#include "qt/Application.hpp"

#include "accessibility/makeAccessible.hpp"
#include "appkit/Application.hpp"
#include "desktop/DesktopPreferences.hpp"
#include "foundation/MainQueue.hpp"
#include "paint/Colors.hpp"
#include "paint/Fonts.hpp"
#include "paint/QtFontCatalog.hpp"
#include "paint/Style.hpp"
#include "window/MonitoredApplication.hpp"

#include <QAccessible>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSocketNotifier>
#include <QTimer>
#include <QToolTip>
#include <QTranslator>

#include <utility>

namespace qt {

namespace {

// Without a desktop, Qt's own choice is too small to read at ease.
constexpr double kSmallestDefaultPointSize = 10;

void prepare(Application::Display display) {
  if (display == Application::Display::offscreen) qputenv("QT_QPA_PLATFORM", "offscreen");
  // The window is placed and sized in whole logical pixels, also where the desktop scales by one
  // and a half.
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

appkit::Appearance appearanceOf(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightnessF() <
                    palette.color(QPalette::WindowText).lightnessF();
  return dark ? appkit::Appearance::dark : appkit::Appearance::light;
}

}  // namespace

class Application::Runtime {
public:
  Runtime(int& argc, char** argv, Display display) : application_((prepare(display), argc), argv) {
    auto& shared = appkit::Application::sharedApplication();
    // What the desktop wants is known only until we set colours of our own.
    ownAppearance_ = appearanceOf(QApplication::palette());
    if (display == Display::screen) {
      desktop_ = std::make_unique<DesktopPreferences>([this] { followDesktop(); });
    }
    followDesktop();
    QApplication::setApplicationName("zorvantine");
    QGuiApplication::setDesktopFileName("zorvantine");
    QApplication::setStyle(new Style);

    QFont font = QApplication::font();
    if (font.pointSizeF() < kSmallestDefaultPointSize)
      font.setPointSizeF(kSmallestDefaultPointSize);
    // Hinted text has other widths at every scale; ours has the same.
    font.setHintingPreference(QFont::PreferNoHinting);
    QApplication::setFont(font);
    QToolTip::setFont(font);

    QAccessible::installFactory(makeAccessible);
    shared.setFontCatalog(std::make_shared<QtFontCatalog>());
    applyAppearance();
    appearance_ = shared.effectiveAppearanceDidChange().subscribe([this] { applyAppearance(); });
    platformChanged_.setSingleShot(true);
    platformChanged_.callOnTimeout(&platformChanged_, [this] { platformChanged(); });
    application_.onNewColors([this] {
      if (!isSettingColors_) platformChanged_.start();
    });

    auto& queue = foundation::MainQueue::mainQueue();
    queue.setWaker([this] { wake(); });
    wake();
  }

  ~Runtime() {
    application_.onNewColors(nullptr);
    foundation::MainQueue::mainQueue().setWaker(nullptr);
    appkit::Application::sharedApplication().setFontCatalog(nullptr);
    QAccessible::removeFactory(makeAccessible);
  }

  int run() { return QApplication::exec(); }

  bool reducedMotion() const { return desktop_ && desktop_->reducedMotion(); }

  void setLanguage(const QString& code) {
    const QLocale locale(code);
    QLocale::setDefault(locale);
    QCoreApplication::removeTranslator(&translator_);
    if (translator_.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
      QCoreApplication::installTranslator(&translator_);
    }
    QGuiApplication::setLayoutDirection(locale.textDirection());
  }

private:
  void followDesktop() {
    const auto wanted = desktop_ ? desktop_->appearance() : std::nullopt;
    appkit::Application::sharedApplication().setSystemAppearance(wanted.value_or(ownAppearance_));
  }

  void applyAppearance() {
    const QScopedValueRollback guard(isSettingColors_, true);
    const QPalette palette = paletteOf(appkit::Application::sharedApplication().palette());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    ownPalette_ = QApplication::palette();
  }

  // The platform has new colours, not we.
  void platformChanged() {
    {
      const QScopedValueRollback guard(isSettingColors_, true);
      // Behind ours, those of a new theme are not seen.
      if (QApplication::palette() == ownPalette_) QApplication::setPalette(QPalette());
      ownAppearance_ = appearanceOf(QApplication::palette());
    }
    followDesktop();
    applyAppearance();
  }

  // On any thread.
  void wake() {
    QMetaObject::invokeMethod(
        &application_, [] { foundation::MainQueue::mainQueue().drain(); }, Qt::QueuedConnection);
  }

  MonitoredApplication application_;
  // Without a portal: what the platform gives Qt.
  appkit::Appearance ownAppearance_ = appkit::Appearance::light;
  QPalette ownPalette_;
  bool isSettingColors_ = false;
  // Several windows hear of one change.
  QTimer platformChanged_;
  std::unique_ptr<DesktopPreferences> desktop_;
  QTranslator translator_;
  foundation::Subscription appearance_;
};

bool Application::hasDisplay() {
  const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

Application::Application(int& argc, char** argv, Display display)
    : runtime_(std::make_unique<Runtime>(argc, argv, display)) {}

Application::~Application() = default;

int Application::run() { return runtime_->run(); }

void Application::quit() { QApplication::quit(); }

std::vector<std::string> Application::preferredLanguages() {
  std::vector<std::string> codes;
  for (const QString& code : QLocale::system().uiLanguages()) codes.push_back(code.toStdString());
  return codes;
}

void Application::setLanguage(const std::string& code) { runtime_->setLanguage(text(code)); }

viewkit::LayoutDirection Application::layoutDirection() {
  return QGuiApplication::layoutDirection() == Qt::RightToLeft
             ? viewkit::LayoutDirection::rightToLeft
             : viewkit::LayoutDirection::leftToRight;
}

bool Application::reducedMotion() const { return runtime_->reducedMotion(); }

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
    // It may be what is calling just now.
    notifier->deleteLater();
  });
}

void Application::processEvents() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace qt
