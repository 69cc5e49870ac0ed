// SPDX-License-Identifier: MIT
#include "window/Runtime.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "accessibility/makeAccessible.hpp"
#include "appkit/Pasteboard.hpp"
#include "bridge/Strings.hpp"
#include "desktop/fontNamed.hpp"
#include "foundation/MainQueue.hpp"
#include "paint/Colors.hpp"
#include "paint/Look.hpp"
#include "paint/QtFontCatalog.hpp"
#include "paint/Style.hpp"

#include <QAccessible>
#include <QClipboard>
#include <QScopedValueRollback>
#include <QThread>
#include <QToolTip>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace qt {

namespace {

appkit::Appearance appearanceOf(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightnessF() <
                    palette.color(QPalette::WindowText).lightnessF();
  return dark ? appkit::Appearance::dark : appkit::Appearance::light;
}

// Widgets are deleted after the runtime, the application's children after all widgets.
QStyle* styleForWidgets() {
  static QPointer<QStyle> style;
  if (!style) {
    style = new Style;
    style->setParent(qApp);
  }
  return style;
}

[[noreturn]] void stop(const char* reason) {
  std::fprintf(stderr, "%s: %s\n", QEVSettings::HostIdentity::current().id.c_str(), reason);
  std::abort();
}

void checkApplication() {
  const QCoreApplication* const application = QCoreApplication::instance();
  if (!application) {
    stop("a window needs a QApplication; make one, or a qt::Application, before the window");
  }
  if (!qobject_cast<const QApplication*>(application)) {
    stop("a window needs a QApplication; this program runs a QCoreApplication or QGuiApplication");
  }
  if (application->thread() != QThread::currentThread()) {
    stop("a window belongs to the main thread; make it on the thread of the QApplication");
  }
}

std::weak_ptr<Runtime>& current() {
  static std::weak_ptr<Runtime> runtime;
  return runtime;
}

}  // namespace

std::shared_ptr<Runtime> Runtime::shared() {
  checkApplication();
  auto runtime = current().lock();
  if (!runtime) {
    const bool followsDesktop = QGuiApplication::platformName() != QLatin1String("offscreen");
    runtime = std::make_shared<Runtime>(Origin::adopted, followsDesktop);
    current() = runtime;
  }
  return runtime;
}

std::shared_ptr<Runtime> Runtime::ofOwned(bool followsDesktop) {
  auto runtime = std::make_shared<Runtime>(Origin::owned, followsDesktop);
  current() = runtime;
  return runtime;
}

Runtime::Runtime(Origin origin, bool followsDesktop)
    : application_(qApp),
      origin_(origin),
      hostHasPalette_(QCoreApplication::testAttribute(Qt::AA_SetPalette)) {
  auto& shared = appkit::Application::sharedApplication();
  hostPalette_ = QApplication::palette();
  // The palette tells what the desktop prefers only until we set colours of our own.
  ownAppearance_ = appearanceOf(hostPalette_);
  ownFont_ = QApplication::font();
  if (origin == Origin::owned) QApplication::setStyle(new Style);
  if (followsDesktop) desktop_ = std::make_unique<DesktopPreferences>([this] { followDesktop(); });
  followDesktop();
  if (origin == Origin::adopted) widgetStyle_ = styleForWidgets();

  QAccessible::installFactory(makeAccessible);
  shared.setFontCatalog(std::make_shared<QtFontCatalog>());
  appkit::Pasteboard::general().setBackEnd(
      [](const std::string& text) { QGuiApplication::clipboard()->setText(toQString(text)); });
  applyAppearance();
  appearance_ = shared.effectiveAppearanceDidChange().subscribe([this] { applyAppearance(); });
  platformChanged_.setSingleShot(true);
  platformChanged_.callOnTimeout(this, [this] { platformChanged(); });
  repeated_.setSingleShot(true);
  repeated_.callOnTimeout(this, [this] { drain(); });
  application_->installEventFilter(this);
  application_->installEventFilter(&keyMonitors_);
  foundation::MainQueue::mainQueue().setWaker([this] { wake(); });
  wake();
}

Runtime::~Runtime() {
  foundation::MainQueue::mainQueue().setWaker(nullptr);
  auto& shared = appkit::Application::sharedApplication();
  shared.setFontCatalog(nullptr);
  appkit::Pasteboard::general().setBackEnd(nullptr);
  QAccessible::removeFactory(makeAccessible);
  if (!application_) return;
  application_->removeEventFilter(&keyMonitors_);
  application_->removeEventFilter(this);
  if (origin_ == Origin::adopted) {
    QApplication::setPalette(hostHasPalette_ ? hostPalette_ : QPalette());
    QToolTip::setPalette(QApplication::palette());
  }
}

bool Runtime::eventFilter(QObject* watched, QEvent* event) {
  const bool isNewPalette =
      event->type() == QEvent::ApplicationPaletteChange && watched == application_;
  const bool isNewTheme = event->type() == QEvent::ThemeChange && watched->isWindowType();
  if ((isNewPalette || isNewTheme) && !isSettingColors_) platformChanged_.start();
  return false;
}

void Runtime::followDesktop() {
  const auto wanted = desktop_ ? desktop_->appearance() : std::nullopt;
  auto& shared = appkit::Application::sharedApplication();
  shared.setSystemAppearance(wanted.value_or(ownAppearance_));
  shared.setSystemContrast(desktop_ ? desktop_->contrast() : appkit::Contrast::normal);
  shared.setSystemAccent(desktop_ ? desktop_->accent() : std::nullopt);
  if (origin_ == Origin::owned) applyFont();
}

// Windows hear of the new font as their widgets do.
void Runtime::applyFont() {
  QFont font = ownFont_;
  if (desktop_) font = fontNamed(desktop_->fontName(), font);
  const double size = std::max(font.pointSizeF(), look::kSmallestPointSize);
  font.setPointSizeF(size * (desktop_ ? desktop_->textScale() : 1));
  // Without hinting, text has the same width at every scale.
  font.setHintingPreference(QFont::PreferNoHinting);
  if (font == QApplication::font()) return;
  QApplication::setFont(font);
  QToolTip::setFont(font);
}

void Runtime::applyAppearance() {
  const QScopedValueRollback guard(isSettingColors_, true);
  const QPalette palette = paletteOf(appkit::Application::sharedApplication().palette());
  QApplication::setPalette(palette);
  QToolTip::setPalette(palette);
  ownPalette_ = QApplication::palette();
}

// Called when the platform, not this class, changed the colours.
void Runtime::platformChanged() {
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
void Runtime::wake() {
  QMetaObject::invokeMethod(
      this, [this] { drain(); }, Qt::QueuedConnection);
}

void Runtime::drain() {
  auto& queue = foundation::MainQueue::mainQueue();
  queue.drain();
  const int due = queue.pollTimeout();
  if (due >= 0) repeated_.start(due);
}

}  // namespace qt
