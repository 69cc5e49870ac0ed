#include "qt/Application.hpp"

#include "Colors.hpp"
#include "QtFontCatalog.hpp"
#include "Style.hpp"
#include "appkit/Application.hpp"
#include "foundation/MainQueue.hpp"

#include <QApplication>
#include <QToolTip>

namespace qt {

namespace {

// Without a desktop, Qt's own choice is too small to read at ease.
constexpr double kSmallestDefaultPointSize = 10;

void prepare(Application::Display display) {
  if (display == Application::Display::offscreen) qputenv("QT_QPA_PLATFORM", "offscreen");
  // The window is placed and sized in whole logical pixels, also where the desktop scales by one and a half.
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

appkit::Appearance appearanceOf(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
  return dark ? appkit::Appearance::dark : appkit::Appearance::light;
}

}  // namespace

class Application::Runtime {
public:
  Runtime(int& argc, char** argv, Display display) : application_((prepare(display), argc), argv) {
    auto& shared = appkit::Application::sharedApplication();
    // What the desktop wants is known only until we set colours of our own.
    shared.setSystemAppearance(appearanceOf(QApplication::palette()));
    QApplication::setApplicationName("zorvantine");
    QGuiApplication::setDesktopFileName("zorvantine");
    QApplication::setStyle(new Style);

    QFont font = QApplication::font();
    if (font.pointSizeF() < kSmallestDefaultPointSize) font.setPointSizeF(kSmallestDefaultPointSize);
    // Hinted text has other widths at every scale; ours has the same.
    font.setHintingPreference(QFont::PreferNoHinting);
    QApplication::setFont(font);
    QToolTip::setFont(font);

    shared.setFontCatalog(std::make_shared<QtFontCatalog>());
    applyAppearance();
    appearance_ = shared.effectiveAppearanceDidChange().subscribe([] { applyAppearance(); });

    auto& queue = foundation::MainQueue::mainQueue();
    queue.setWaker([this] { wake(); });
    wake();
  }

  ~Runtime() {
    foundation::MainQueue::mainQueue().setWaker(nullptr);
    appkit::Application::sharedApplication().setFontCatalog(nullptr);
  }

  int run() { return QApplication::exec(); }

private:
  static void applyAppearance() {
    const QPalette palette = paletteOf(appkit::Application::sharedApplication().palette());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
  }

  // On any thread.
  void wake() {
    QMetaObject::invokeMethod(
        &application_, [] { foundation::MainQueue::mainQueue().drain(); }, Qt::QueuedConnection);
  }

  QApplication application_;
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

void Application::processEvents() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace qt
