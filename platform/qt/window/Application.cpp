#include "qt/Application.hpp"

#include "accessibility/makeAccessible.hpp"
#include "appkit/Application.hpp"
#include "bridge/Strings.hpp"
#include "desktop/DesktopPreferences.hpp"
#include "foundation/MainQueue.hpp"
#include "paint/Colors.hpp"
#include "paint/Look.hpp"
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

void prepare(Application::Display display) {
  if (display == Application::Display::offscreen) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Windows are placed in whole points at fractional scale factors too.
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
    // The palette tells what the desktop prefers only until we set colors of our own.
    ownAppearance_ = appearanceOf(QApplication::palette());
    if (display == Display::screen) {
      desktop_ = std::make_unique<DesktopPreferences>([this] { followDesktop(); });
    }
    followDesktop();
    QApplication::setApplicationName("zorvantine");
    QGuiApplication::setDesktopFileName("zorvantine");
    QApplication::setStyle(new Style);

    QFont font = QApplication::font();
    if (font.pointSizeF() < look::kSmallestPointSize) font.setPointSizeF(look::kSmallestPointSize);
    // Without hinting, text has the same width at every scale.
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

  // Called when the platform, not this class, changed the colors.
  void platformChanged() {
    {
      const QScopedValueRollback guard(isSettingColors_, true);
      // Our palette hides that of a new theme, so it is taken away to read the theme's.
      if (QApplication::palette() == ownPalette_) QApplication::setPalette(QPalette());
      ownAppearance_ = appearanceOf(QApplication::palette());
    }
    followDesktop();
    applyAppearance();
  }

  // Any thread.
  void wake() {
    QMetaObject::invokeMethod(
        &application_, [] { foundation::MainQueue::mainQueue().drain(); }, Qt::QueuedConnection);
  }

  MonitoredApplication application_;
  // The appearance of the platform's palette, used where there is no portal.
  appkit::Appearance ownAppearance_ = appkit::Appearance::light;
  QPalette ownPalette_;
  bool isSettingColors_ = false;
  // Every window reports the same change; the timer handles it once.
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

void Application::setLanguage(const std::string& code) { runtime_->setLanguage(toQString(code)); }

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
    // The notifier may be calling this function.
    notifier->deleteLater();
  });
}

void Application::processEvents() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace qt
