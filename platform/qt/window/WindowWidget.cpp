// SPDX-License-Identifier: MIT
#include "window/WindowWidget.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "appkit/Application.hpp"
#include "bridge/KeyEvents.hpp"
#include "bridge/Strings.hpp"
#include "controls/ControlWidget.hpp"
#include "controls/makeControl.hpp"
#include "foundation/Files.hpp"
#include "foundation/MainQueue.hpp"
#include "paint/Look.hpp"
#include "viewkit/KeyRouter.hpp"
#include "window/tooltipAt.hpp"

#include <QApplication>
#include <QBuffer>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace qt {

namespace {

constexpr int kFrameMilliseconds = 16;

}  // namespace

WindowWidget::WindowWidget(Window& window, const WindowOptions& options)
    : window_(window),
      preferredSize_(QSizeF(options.size.width, options.size.height).toSize()),
      scrolling_(*this, {.control = [this] { return scrolledRoot(); },
                         .host = [this]() -> viewkit::ViewHost& { return *host_; }}) {
  if (QStyle* const style = runtime_->widgetStyle()) setStyle(style);
  const auto& environment = options.environment;
  const bool rightToLeft = environment.layoutDirection == viewkit::LayoutDirection::rightToLeft;
  metrics_.setDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  setWindowTitle(toQString(options.title.empty() ? QEVSettings::HostIdentity::current().displayName
                                                 : options.title));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  host_ = std::make_unique<viewkit::ViewHost>(options.root, environment, metrics_);
  mirror_ = std::make_unique<Mirror>(*this, *host_, makeControl);
  accessibles_ = std::make_unique<AccessibleTree>(*mirror_);
  contextMenus_.emplace(*mirror_,
                        [this](const QWidget* widget) { return mirror_->controlAround(widget); });
  host_->setObserver([this](const viewkit::PresentationChanges& changes) { present(changes); });

  frames_.setTimerType(Qt::PreciseTimer);
  frames_.setInterval(kFrameMilliseconds);
  frames_.callOnTimeout(this, [this] { stepAnimations(); });
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { revealFocus(now); });
  // The user may cancel the end of the session, so texts are committed and the window stays open.
  connect(qApp, &QGuiApplication::commitDataRequest, this, [this] {
    if (host_) host_->endEditing();
  });
  qApp->installEventFilter(this);
  runtime_->keyMonitors().add(*this);
  appearance_ =
      appkit::Application::sharedApplication().effectiveAppearanceDidChange().subscribe([this] {
        update();
        for (QWidget* child : findChildren<QWidget*>()) child->update();
      });

  resize(preferredSize_);
  host_->setSize({double(width()), double(height())});
  fit();
  host_->update();
}

WindowWidget::~WindowWidget() {
  closed_ = nullptr;
  endViews();
  appkit::Application::sharedApplication().windowDidResignKey(window_);
  runtime_->keyMonitors().remove(*this);
  // The base class moves the focus after this object's members are gone.
  qApp->removeEventFilter(this);
  disconnect(qApp, nullptr, this, nullptr);
}

void WindowWidget::endViews() {
  if (!host_) return;
  frames_.stop();
  clearFocusAndCommit();
  host_->endEditing();
  const auto refusedTexts = host_->refusedTexts();
  // The observer goes first: what views change while they disappear is not shown any more.
  host_->setObserver(nullptr);
  contextMenus_.reset();
  accessibles_.reset();
  mirror_.reset();
  host_.reset();
  if (refused_ && !refusedTexts.empty()) refused_(refusedTexts);
}

void WindowWidget::present(const viewkit::PresentationChanges& changes) {
  mirror_->show(changes);
  scrolling_.refresh();
  scrolling_.raiseBars();
  accessibles_->show(changes);
  if (QWidget* wanted = changes.focused != 0 ? mirror_->widgetOf(changes.focused) : nullptr)
    wanted->setFocus(Qt::TabFocusReason);
  contextMenus_->viewsChanged();
  if (host_->isAnimating() && !frames_.isActive()) {
    sinceFrame_.start();
    frames_.start();
  }
  // A change that only paints, such as a hover, needs no turn of the event loop for this.
  if (changes.laidOut) fitLater();
}

void WindowWidget::stepAnimations() {
  host_->advanceAnimations(std::chrono::duration<double>(double(sinceFrame_.restart()) / 1000));
  if (!host_->isAnimating()) frames_.stop();
}

void WindowWidget::fitLater() {
  if (std::exchange(fitPending_, true)) return;
  // A queued call comes before the next painting, which has a lower priority.
  QMetaObject::invokeMethod(
      this, [this] { fit(); }, Qt::QueuedConnection);
}

void WindowWidget::fit() {
  fitPending_ = false;
  if (!host_) return;
  const double least = std::ceil(host_->sizeThatFits({.width = 0, .height = 0}).width);
  const double across = std::max(least, double(width()));
  const double lowest = std::ceil(host_->sizeThatFits({.width = across, .height = 0}).height);
  const QSize needed(static_cast<int>(least), static_cast<int>(lowest));
  if (needed == fitted_) return;
  const bool isFirst = !fitted_.isValid();
  const bool isAsFitted = isFirst || height() == fittedHeight_;
  const bool isLower = !isFirst && height() < fittedHeight_;
  const bool isRigid =
      host_->sizeThatFits({.width = across, .height = viewkit::kUnlimited}).height <= lowest;
  fitted_ = needed;
  const QSize room = this->room();
  setMinimumSize(std::min(needed.width(), room.width()),
                 std::min({needed.height(), look::window::kLeastHeight, room.height()}));
  // A window that the user made lower stays as it is.
  const int wanted = isAsFitted && isRigid ? needed.height()
                     : isLower             ? height()
                                           : std::max(height(), needed.height());
  fittedHeight_ = std::min(wanted, room.height());
  const QSize size(std::min(std::max(width(), needed.width()), room.width()), fittedHeight_);
  if (isLower) fittedHeight_ = std::min(needed.height(), room.height());
  // Inside a window of the host, the host decides the size.
  if (isWindow() && size != this->size()) resize(size);
  host_->setSize({double(width()), double(height())});
}

QSize WindowWidget::room() const {
  if (!isWindow()) return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
  const QSize frame = (frameGeometry().size() - size())
                          .expandedTo({look::window::kFrameWidth, look::window::kFrameHeight});
  return screen()->availableGeometry().size() - frame;
}

const viewkit::ScrollControl* WindowWidget::scrolledRoot() const {
  const viewkit::Control* control = host_ ? host_->presentation().control() : nullptr;
  return control ? std::get_if<viewkit::ScrollControl>(control) : nullptr;
}

ControlWidget* WindowWidget::focusedControl() const {
  return mirror_ && focusWidget() ? mirror_->controlAround(focusWidget()) : nullptr;
}

ControlWidget* WindowWidget::controlFor(const appkit::Responder& responder) const {
  for (QWidget* child : findChildren<QWidget*>()) {
    auto* control = dynamic_cast<ControlWidget*>(child);
    if (control && control->node() && &control->responder() == &responder) return control;
  }
  return nullptr;
}

void WindowWidget::clearFocusAndCommit() {
  if (ControlWidget* control = focusedControl()) control->endEditing();
  if (focusWidget()) focusWidget()->clearFocus();
}

void WindowWidget::revealFocus(const QWidget* focused) {
  if (!mirror_ || !focused || !isAncestorOf(focused)) return;
  const ControlWidget* control = mirror_->controlAround(focused);
  if (!control || !control->node()) return;
  host_->reveal(control->node()->id);
  // Qt announces the focus of the list itself after this.
  QMetaObject::invokeMethod(
      this,
      [this, id = control->node()->id] {
        const viewkit::PresentationNode* node = host_ ? host_->node(id) : nullptr;
        if (node) accessibles_->announceFocusIn(*node);
      },
      Qt::QueuedConnection);
}

QSize WindowWidget::sizeHint() const { return preferredSize_.expandedTo(fitted_); }

bool WindowWidget::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::ActivationChange && watched == window()) noteActivation();
  if (type == QEvent::Polish) polish(*watched);
  if (!host_) return false;
  contextMenus_->noteTouch(*watched, *event);
  const bool isOfInterest =
      type == QEvent::MouseMove || type == QEvent::KeyPress || type == QEvent::ContextMenu;
  const auto* under = isOfInterest ? qobject_cast<QWidget*>(watched) : nullptr;
  return under && (under == this || isAncestorOf(under)) && handle(*under, *event);
}

bool WindowWidget::handle(const QWidget& under, QEvent& event) {
  if (event.type() == QEvent::KeyPress) return routeKey(static_cast<QKeyEvent&>(event));
  if (event.type() == QEvent::ContextMenu)
    return contextMenus_->handle(under, static_cast<QContextMenuEvent&>(event));
  host_->pointerMoved(mirror_->treePoint(under, static_cast<QMouseEvent&>(event).position()));
  return false;
}

void WindowWidget::openContextMenu(viewkit::NodeId id) {
  if (contextMenus_) contextMenus_->openOf(id);
}

MenuList* WindowWidget::contextMenuList() const {
  return contextMenus_ ? contextMenus_->openList() : nullptr;
}

bool WindowWidget::routeKey(const QKeyEvent& press) {
  ControlWidget* control = focusedControl();
  if (contextMenus_->handle(control, press)) return true;
  const viewkit::PresentationNode* node = control ? control->node() : nullptr;
  switch (viewkit::routeKey(*host_, eventFrom(press), node ? node->id : 0)) {
    case viewkit::KeyOutcome::handled: return true;
    case viewkit::KeyOutcome::closesWindow:
      // Inside a window of the host, the host decides what closes it.
      if (!isWindow()) return false;
      close();
      return true;
    case viewkit::KeyOutcome::passedOn: return false;
  }
  return false;
}

bool WindowWidget::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return scrolling_.touch(*event) || QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  if (!showTooltip(help->pos(), help->globalPos())) event->ignore();
  return true;
}

// In an application with a style of its own, the controls of this window bring theirs.
void WindowWidget::polish(QObject& watched) {
  QStyle* const style = runtime_->widgetStyle();
  auto* const polished = style ? qobject_cast<QWidget*>(&watched) : nullptr;
  if (polished && polished->style() != style && isAncestorOf(polished)) polished->setStyle(style);
}

void WindowWidget::noteActivation() {
  auto& application = appkit::Application::sharedApplication();
  if (isVisible() && isActiveWindow()) {
    application.windowDidBecomeKey(window_);
  } else {
    application.windowDidResignKey(window_);
  }
}

bool WindowWidget::showTooltip(QPoint point, QPoint onScreen) {
  if (!host_) return false;
  const QWidget* under = childAt(point);
  const viewkit::Point inTree =
      under ? mirror_->treePoint(*under, under->mapFrom(this, QPointF(point)))
            : mirror_->treePoint(*this, QPointF(point));
  const viewkit::PresentationNode* node = tooltipAt(host_->presentation(), inTree);
  if (!node) return false;
  const MirroredTree::Place place = mirror_->placeOf(*node);
  const QRect area(place.widget->mapTo(this, place.rect.topLeft()).toPoint(),
                   place.rect.size().toSize());
  QToolTip::showText(onScreen, "<qt>" + toQString(node->tooltip).toHtmlEscaped() + "</qt>", this,
                     area);
  return true;
}

void WindowWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), palette().color(QPalette::Window));
  if (mirror_) mirror_->paint(painter, *this, event->rect());
}

void WindowWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (!host_) return;
  host_->setSize({double(width()), double(height())});
  host_->update();
  scrolling_.refresh();
}

// Texts have other sizes in another font.
void WindowWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::FontChange || !host_) return;
  host_->setEnvironment(host_->environment());
  fitLater();
}

void WindowWidget::wheelEvent(QWheelEvent* event) { event->setAccepted(scrolling_.wheel(*event)); }

void WindowWidget::keyPressEvent(QKeyEvent* event) { event->setAccepted(scrolling_.key(*event)); }

// In a window of the host's, that one may have been active before.
void WindowWidget::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  noteActivation();
}

void WindowWidget::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  noteActivation();
}

bool WindowWidget::agreesToClose() {
  if (!mayClose_) return true;
  clearFocusAndCommit();
  host_->endEditing();
  const auto refusedTexts = host_->refusedTexts();
  return refusedTexts.empty() || mayClose_(refusedTexts);
}

void WindowWidget::closeEvent(QCloseEvent* event) {
  if (host_ && !agreesToClose()) {
    event->ignore();
    return;
  }
  QWidget::closeEvent(event);
  if (!host_) return;
  endViews();
  // On a later turn of the main queue, because the call may destroy the window.
  if (closed_) foundation::MainQueue::mainQueue().async(std::exchange(closed_, nullptr));
}

void WindowWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pressedAt_ = event->position().toPoint();
}

void WindowWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressedAt_ || !host_) return;
  const QPoint from = *std::exchange(pressedAt_, std::nullopt);
  const QPoint to = event->position().toPoint();
  if ((to - from).manhattanLength() >= QApplication::startDragDistance()) return;
  host_->click(mirror_->treePoint(*this, event->position()));
}

void WindowWidget::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  if (host_) host_->pointerLeft();
}

foundation::Outcome WindowWidget::snapshot(const std::string& path, double scale) {
  if (host_) {
    host_->update();
    host_->finishAnimations();
    fit();
    host_->update();
  }
  ensurePolished();
  QImage image(QSizeF(size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(palette().color(QPalette::Window));
  render(&image);
  QByteArray picture;
  QBuffer buffer(&picture);
  if (!image.save(&buffer, "PNG"))
    return foundation::Error{"the picture cannot be made; choose a smaller scale"};
  return foundation::writeFile(path,
                               {picture.constData(), static_cast<std::size_t>(picture.size())});
}

}  // namespace qt
