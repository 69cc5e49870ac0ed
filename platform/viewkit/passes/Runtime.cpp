// SPDX-License-Identifier: MIT
#include "passes/Runtime.hpp"

#include "foundation/MainQueue.hpp"
#include "foundation/ScopedFlag.hpp"
#include "input/PointerRegion.hpp"
#include "passes/Editing.hpp"
#include "tree/RootNode.hpp"
#include "viewkit/Animation.hpp"

#include <algorithm>
#include <utility>

namespace viewkit {

namespace {

// How many rounds of handlers and changes one update has before handlers of changes are skipped.
constexpr int kMostRounds = 16;

}  // namespace

ViewHost::Runtime::Runtime(Environment environment, const PlatformMetrics& metrics)
    : NodeServices(metrics),
      environment_(std::move(environment)),
      layout_(layout),
      animation_(environment_.reducedMotion) {}

// The nodes take themselves off the passes, so they go first.
ViewHost::Runtime::~Runtime() { root_.reset(); }

void ViewHost::Runtime::open(const View& root) {
  const View window(std::make_shared<const RootValue>(root));
  {
    const foundation::ScopedFlag pass(inPass_, true);
    root_ = window.value()->makeNode();
    root_->mount(*this, nullptr, window,
                 std::make_shared<const Inherited>(Inherited{.environment = environment_}));
  }
  schedule();
}

void ViewHost::Runtime::close() {
  observer_ = nullptr;
  closed_ = true;
  root_->setActive(false);
  handlers_.callLast();
  // A body or a layout that is under way still needs its nodes; they go with the runtime.
  if (!inPass_) root_.reset();
}

void ViewHost::Runtime::setSize(Size size) {
  layout_.setSize(size);
  if (layout_.isMarked()) schedule();
}

Size ViewHost::Runtime::sizeThatFits(const ProposedSize& proposal) {
  if (inPass_) return root_->sizeThatFits(proposal);
  Size size;
  {
    const foundation::ScopedFlag pass(inPass_, true);
    layout_.begin();
    rebuild_.run();
    layout_.remeasure();
    size = root_->sizeThatFits(proposal);
  }
  if (isMarked()) schedule();
  return size;
}

void ViewHost::Runtime::setEnvironment(Environment environment) {
  environment_ = std::move(environment);
  animation_.setReducedMotion(environment_.reducedMotion);
  root_->forgetLayout();
  root_->become(root_->view(),
                std::make_shared<const Inherited>(Inherited{.environment = environment_}));
  layout_.markRoot();
  schedule();
}

const PresentationNode* ViewHost::Runtime::node(NodeId id) const {
  const Node* node = present_.shownNode(id);
  return node ? &node->presented()->node : nullptr;
}

void ViewHost::Runtime::schedule() {
  if (closed_) return;
  animation_.noteChange();
  if (scheduled_ || inPass_) return;
  scheduled_ = true;
  foundation::MainQueue::mainQueue().async([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->update();
  });
}

bool ViewHost::Runtime::isMarked() const {
  return rebuild_.isMarked() || layout_.isMarked() || scroll_.isMarked() || !handlers_.isEmpty();
}

bool ViewHost::Runtime::hasWork() const {
  return isMarked() || present_.isMarked() || scroll_.wantsFocus();
}

void ViewHost::Runtime::update() {
  scheduled_ = false;
  if (inPass_ || closed_ || !hasWork()) return;
  try {
    runUpdate();
  } catch (...) {
    // The update ended early: what is still marked is shown by the next one.
    if (hasWork()) schedule();
    throw;
  }
}

void ViewHost::Runtime::runUpdate() {
  for (int round = 0; round <= kMostRounds && (round == 0 || isMarked()); ++round) {
    rebuildAndLayOut();
    if (closed_) return;
    // Once: a region that moves away from the pointer because the pointer is there must not go on.
    if (round == 0) input_.refreshHover(*root_);
    handlers_.call(round < kMostRounds);
    if (closed_) return;
  }
  present();
  if (closed_) return;
  for (CompositeNode* node : rebuild_.takeDeferred()) markBody(*node);
  if (isMarked()) schedule();
}

void ViewHost::Runtime::rebuildAndLayOut() {
  const foundation::ScopedFlag pass(inPass_, true);
  layout_.begin();
  rebuild_.run();
  animation_.rebuildIsOver();
  layout_.run(*root_);
  scroll_.run(layout_, *root_);
}

NodeId ViewHost::Runtime::focusRequested() {
  if (!scroll_.wantsFocus()) return 0;
  const foundation::ScopedFlag pass(inPass_, true);
  return scroll_.runFocus(layout_, *root_);
}

void ViewHost::Runtime::present() {
  const NodeId focused = focusRequested();
  if (!present_.isMarked() && focused == 0) return;
  PresentationChanges changes = [this] {
    const foundation::ScopedFlag pass(inPass_, true);
    return present_.run(*root_, animation_);
  }();
  changes.focused = present_.shownNode(focused) ? focused : 0;
  if (changes.changed.empty() && changes.removed.empty() && changes.damage.empty() &&
      changes.focused == 0)
    return;
  changes.laidOut = layout_.takeLaidOut();
  counters.nodesChanged += changes.changed.size();
  // A copy: the observer may replace itself, or destroy the host.
  const Observer observer = observer_;
  if (observer) observer(changes);
}

void ViewHost::Runtime::markBody(CompositeNode& node) {
  rebuild_.mark(node);
  schedule();
}

void ViewHost::Runtime::markLayout(Node& node) {
  layout_.markLayout(node);
  schedule();
}

void ViewHost::Runtime::markPlacement(Node& node) {
  layout_.markPlacement(node);
  schedule();
}

void ViewHost::Runtime::markPresentation(Node& node) {
  present_.markPresentation(node);
  schedule();
}

void ViewHost::Runtime::markChildren(Node& presenting) {
  present_.markChildren(presenting);
  schedule();
}

void ViewHost::Runtime::nodeGone(Node& node) {
  rebuild_.nodeGone(node);
  layout_.nodeGone(node);
  input_.nodeGone(node);
  animation_.nodeGone(node);
  present_.nodeGone(node);
}

void ViewHost::Runtime::callAfterLayout(HandlerKind kind, std::function<void()> handler) {
  handlers_.append(kind, std::move(handler));
  schedule();
}

void ViewHost::Runtime::callFirstAfterLayout(std::function<void()> handler) {
  handlers_.prepend(HandlerKind::event, std::move(handler));
  schedule();
}

void ViewHost::Runtime::scrollAfterLayout(std::weak_ptr<ScrollProxy::Target> target, ViewId id) {
  scroll_.request(std::move(target), std::move(id));
  schedule();
}

void ViewHost::Runtime::focusAfterUpdate(std::weak_ptr<ScrollProxy::Target> target, ViewId id) {
  scroll_.requestFocus(std::move(target), std::move(id));
  schedule();
}

void ViewHost::Runtime::pointerMoved(std::optional<Point> point) {
  input_.setPointer(point);
  if (inPass_) return;
  input_.refreshHover(*root_);
  handlers_.call(true);
}

bool ViewHost::Runtime::click(Point point) {
  if (inPass_) return false;
  // A click may follow another one within the same turn of the main queue.
  update();
  return !closed_ && clickAt(point, *root_);
}

bool ViewHost::Runtime::press(NodeId id) {
  if (inPass_) return false;
  update();
  Node* const node = closed_ ? nullptr : present_.shownNode(id);
  Node* const clicked = node ? nodeClickedByPressing(*node) : nullptr;
  if (!clicked) return false;
  clicked->pointerRegion()->click();
  return true;
}

std::optional<ContextMenu> ViewHost::Runtime::contextMenuAt(Point point) {
  if (inPass_) return std::nullopt;
  update();
  return closed_ ? std::nullopt : contextMenuOf(nodeWithContextMenuAt(point, *root_));
}

std::optional<ContextMenu> ViewHost::Runtime::contextMenuOf(NodeId id) {
  if (inPass_) return std::nullopt;
  update();
  Node* const node = closed_ ? nullptr : present_.shownNode(id);
  return contextMenuOf(node ? nodeWithContextMenuAround(*node) : nullptr);
}

std::optional<ContextMenu> ViewHost::Runtime::contextMenuOf(Node* node) {
  if (!node) return std::nullopt;
  ContextMenu menu = node->pointerRegion()->contextMenu();
  return menu.items.empty() ? std::nullopt : std::optional(std::move(menu));
}

bool ViewHost::Runtime::hasContextMenu(NodeId id) const {
  Node* const node = present_.shownNode(id);
  return node && nodeWithContextMenuAround(*node);
}

void ViewHost::Runtime::reveal(NodeId id) {
  if (Node* const node = present_.shownNode(id)) scrollIntoSight(*node, {{}, node->size()});
}

bool ViewHost::Runtime::handleKey(const appkit::Event& press, NodeId focused) {
  if (inPass_) return false;
  update();
  if (closed_) return false;
  const Node* const focus = present_.shownNode(focused);
  return std::ranges::any_of(keyHandlersFor(focus, keyHandlers_),
                             [&](const auto& handle) { return handle(press) || closed_; });
}

void ViewHost::Runtime::endEditing() {
  viewkit::endEditing(*root_);
  update();
}

void ViewHost::Runtime::advanceAnimations(std::chrono::duration<double> elapsed) {
  animation_.advance(elapsed, present_);
  update();
}

void ViewHost::Runtime::finishAnimations() {
  // A handler may begin another fade. The limit ends one that does so without end.
  for (int round = 0; round < kMostRounds && isAnimating() && !closed_; ++round)
    advanceAnimations(kDefaultAnimationDuration);
}

}  // namespace viewkit
