#include "passes/Runtime.hpp"

#include "containers/ScrollNode.hpp"
#include "containers/ScrollTarget.hpp"
#include "foundation/MainQueue.hpp"
#include "tree/CompositeNode.hpp"
#include "tree/Diagnostics.hpp"
#include "tree/RootNode.hpp"
#include "viewkit/Animation.hpp"

#include <algorithm>
#include <utility>

namespace viewkit {

namespace {

// How often handlers may change what they are told of before their answers are given up.
constexpr int kRoundsOfAnswers = 16;
// How often placing views may change sizes again, as it does where rows come into sight.
constexpr int kRoundsOfLayout = 8;

bool withinAnimation = false;

// Sets a flag until the block ends, by an exception too.
class Setting {
public:
  Setting(bool& flag, bool value) : flag_(flag), before_(std::exchange(flag, value)) {}
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;
  ~Setting() { flag_ = before_; }

private:
  bool& flag_;
  bool before_;
};

template <class Marked>
bool isDeeper(const Marked& a, const Marked& b) {
  return a.depth > b.depth;
}

template <class Marked>
bool isHigher(const Marked& a, const Marked& b) {
  return a.depth < b.depth;
}

}  // namespace

void withAnimation(const std::function<void()>& changes) {
  const Setting animation(withinAnimation, true);
  changes();
}

ViewHost::Runtime::Runtime(Environment environment, const PlatformMetrics& metrics)
    : metrics_(metrics), environment_(environment) {}

ViewHost::Runtime::~Runtime() { root_.reset(); }

void ViewHost::Runtime::open(const View& root) {
  const View window(std::make_shared<const RootValue>(root));
  {
    const Setting pass(inPass_, true);
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
  while (!calls_.empty()) {
    const Call call = std::move(calls_.front());
    calls_.pop_front();
    if (call.kind == CallKind::appearance) call.run();
  }
  // A body or a layout that is under way still needs its nodes; they go with the runtime.
  if (!inPass_) root_.reset();
}

void ViewHost::Runtime::setSize(Size size) {
  if (size == size_) return;
  size_ = size;
  ++layoutEra_;
  sizeChanged_ = true;
  schedule();
}

Size ViewHost::Runtime::sizeThatFits(const ProposedSize& proposal) {
  if (inPass_) return root_->sizeThatFits(proposal);
  Size size;
  {
    const Setting pass(inPass_, true);
    ++layoutPass_;
    rebuild();
    remeasure();
    size = root_->sizeThatFits(proposal);
  }
  if (isMarked()) schedule();
  return size;
}

void ViewHost::Runtime::setEnvironment(Environment environment) {
  environment_ = environment;
  root_->forgetLayout();
  root_->become(root_->view(),
                std::make_shared<const Inherited>(Inherited{.environment = environment}));
  sizeChanged_ = true;
  schedule();
}

const PresentationNode* ViewHost::Runtime::node(NodeId id) const {
  const Node* node = presenter_.shownNode(id);
  return node ? &node->presented()->node : nullptr;
}

void ViewHost::Runtime::schedule() {
  if (closed_) return;
  if (withinAnimation) animated_ = true;
  if (scheduled_ || inPass_) return;
  scheduled_ = true;
  foundation::MainQueue::mainQueue().async([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->update();
  });
}

void ViewHost::Runtime::bodyChanged(CompositeNode& node) {
  if (withinAnimation) animated_ = true;
  if (std::exchange(node.marks.body, true)) return;
  if (CompositeNode::running()) {
    deferredBodies_.push_back({&node, node.depth()});
  } else {
    markedBodies_.push_back({&node, node.depth()});
    std::push_heap(markedBodies_.begin(), markedBodies_.end(), isDeeper<Marked>);
  }
  schedule();
}

void ViewHost::Runtime::bodyRan(CompositeNode& node) {
  // It ran because its parent's did; the mark is served.
  if (!std::exchange(node.marks.body, false)) return;
  for (Marked& marked : markedBodies_) {
    if (marked.node == &node) marked.node = nullptr;
  }
}

void ViewHost::Runtime::layoutChanged(Node& node) {
  if (std::exchange(node.marks.layout, true)) return;
  markedLayouts_.push_back({&node, node.depth()});
  std::push_heap(markedLayouts_.begin(), markedLayouts_.end(), isHigher<Marked>);
  schedule();
}

void ViewHost::Runtime::placementChanged(Node& node) {
  if (std::exchange(node.marks.placement, true)) return;
  markedPlacements_.push_back({&node, node.depth()});
  schedule();
}

void ViewHost::Runtime::presentationChanged(Node& node) {
  presenter_.presentationChanged(node);
  schedule();
}

void ViewHost::Runtime::childrenChanged(Node& presenting) {
  presenter_.childrenChanged(presenting);
  schedule();
}

void ViewHost::Runtime::nodeGone(Node& node) {
  const auto forget = [&](std::vector<Marked>& list) {
    for (Marked& marked : list) {
      if (marked.node == &node) marked.node = nullptr;
    }
  };
  if (node.marks.body) forget(markedBodies_);
  if (!deferredBodies_.empty()) forget(deferredBodies_);
  if (node.marks.layout) forget(markedLayouts_);
  if (node.marks.placement) forget(markedPlacements_);
  std::erase(hovered_, &node);
  fades_.nodeGone(node);
  presenter_.nodeGone(node);
}

void ViewHost::Runtime::afterLayout(CallKind kind, std::function<void()> call) {
  calls_.push_back({kind, std::move(call)});
  schedule();
}

void ViewHost::Runtime::scrollAfterLayout(std::weak_ptr<ScrollProxy::Target> target, ViewId id) {
  scrolls_.push_back({std::move(target), std::move(id)});
  schedule();
}

bool ViewHost::Runtime::isMarked() const {
  return !markedBodies_.empty() || !markedLayouts_.empty() || !markedPlacements_.empty() ||
         sizeChanged_ || !calls_.empty() || !scrolls_.empty();
}

void ViewHost::Runtime::update() {
  scheduled_ = false;
  if (inPass_ || closed_ || !(isMarked() || presenter_.isMarked())) return;
  try {
    runUpdate();
  } catch (...) {
    // The update ended early: what is still marked is shown by the next one.
    if (isMarked() || presenter_.isMarked()) schedule();
    throw;
  }
}

void ViewHost::Runtime::runUpdate() {
  for (int round = 0; round == 0 || isMarked(); ++round) {
    const bool withAnswers = round < kRoundsOfAnswers;
    if (round == kRoundsOfAnswers + 1) break;
    runPasses();
    if (closed_) return;
    // Once: where a region moves away from the pointer because the pointer is there, it must not go
    // on.
    if (round == 0) refreshHover();
    runCalls(withAnswers);
    if (closed_) return;
  }
  present();
  if (closed_) return;
  for (const Marked& deferred : std::exchange(deferredBodies_, {})) {
    if (!deferred.node) continue;
    deferred.node->marks.body = false;
    bodyChanged(static_cast<CompositeNode&>(*deferred.node));
  }
  if (isMarked()) schedule();
}

void ViewHost::Runtime::runPasses() {
  const Setting pass(inPass_, true);
  ++layoutPass_;
  rebuild();
  animated_ = false;
  layout();
  scroll();
}

void ViewHost::Runtime::rebuild() {
  while (!markedBodies_.empty()) {
    // A body higher up may make those below it run, or go: it runs first.
    std::pop_heap(markedBodies_.begin(), markedBodies_.end(), isDeeper<Marked>);
    Node* node = markedBodies_.back().node;
    markedBodies_.pop_back();
    if (!node) continue;
    node->marks.body = false;
    node->runBody();
  }
}

void ViewHost::Runtime::layout() {
  for (int round = 0; round < kRoundsOfLayout; ++round) {
    remeasure();
    if (std::exchange(sizeChanged_, false)) root_->place({}, size_);
    placeMarked();
    if (markedLayouts_.empty() && markedPlacements_.empty()) return;
  }
}

void ViewHost::Runtime::remeasure() {
  while (!markedLayouts_.empty()) {
    std::pop_heap(markedLayouts_.begin(), markedLayouts_.end(), isHigher<Marked>);
    Node* node = markedLayouts_.back().node;
    markedLayouts_.pop_back();
    if (!node) continue;
    node->marks.layout = false;
    // Where the size stays, nothing outside notices; where it does not, the parent is asked next.
    if (node->remeasuresEqually() || !node->parent()) {
      placementChanged(*node);
    } else {
      layoutChanged(*node->parent());
    }
  }
}

void ViewHost::Runtime::placeMarked() {
  std::sort(markedPlacements_.begin(), markedPlacements_.end(), isHigher<Marked>);
  // Nodes may go, and others be marked, while some are placed; those wait for the next round.
  const std::size_t count = markedPlacements_.size();
  for (std::size_t i = 0; i < count; ++i) {
    Node* node = markedPlacements_[i].node;
    if (!node) continue;
    node->marks.placement = false;
    markedPlacements_[i].node = nullptr;
    node->placeAgain();
  }
  markedPlacements_.erase(markedPlacements_.begin(),
                          markedPlacements_.begin() + static_cast<std::ptrdiff_t>(count));
}

void ViewHost::Runtime::scroll() {
  for (const ScrollRequest& request : std::exchange(scrolls_, {})) {
    // Rows that were never seen are only guessed at: each look is closer than the one before.
    for (int round = 0; round < kRoundsOfLayout; ++round) {
      const auto target = request.target.lock();
      if (!target || !target->node) break;
      const Node::Found found = target->node->find(request.id);
      if (!found.node || !ScrollNode::reveal(*found.node, found.frame)) break;
      layout();
    }
  }
}

void ViewHost::Runtime::runCalls(bool withAnswers) {
  // One after the other off the queue: closing the host from a handler still makes the rest.
  for (std::size_t left = calls_.size(); left > 0 && !calls_.empty(); --left) {
    const Call call = std::move(calls_.front());
    calls_.pop_front();
    if (!withAnswers && call.kind == CallKind::answer) {
      reportMistake(
          "handlers of changes go on changing what they are called for; the last ones were not "
          "called");
      continue;
    }
    call.run();
    if (closed_) return;
  }
}

void ViewHost::Runtime::present() {
  if (!presenter_.isMarked()) return;
  const PresentationChanges changes = [this] {
    const Setting pass(inPass_, true);
    return presenter_.present(*root_, fades_);
  }();
  if (changes.changed.empty() && changes.removed.empty() && changes.damage.empty()) return;
  counters_.nodesChanged += changes.changed.size();
  // A copy: the observer may take itself away, or end the host.
  const Observer observer = observer_;
  if (observer) observer(changes);
}

void ViewHost::Runtime::inserted(Node& child) {
  if (animated_) fadeIn(child);
}

void ViewHost::Runtime::fadeIn(Node& node) {
  if (!environment_.reducedMotion) fades_.fadeIn(node);
}

void ViewHost::Runtime::removing(Node& child, Node& presenting) {
  if (!animated_ || environment_.reducedMotion || !child.isActive()) return;
  fades_.fadeOut(child, presenting, presenter_);
}

void ViewHost::Runtime::advanceAnimations(std::chrono::duration<double> elapsed) {
  fades_.advance(elapsed, presenter_);
  update();
}

void ViewHost::Runtime::finishAnimations() {
  // A handler of an update may begin another fade; they are finished too, but not for ever.
  for (int round = 0; round < kRoundsOfAnswers && isAnimating() && !closed_; ++round) {
    advanceAnimations(kDefaultAnimationDuration);
  }
}

void ViewHost::Runtime::pointerMoved(Point point) {
  pointer_ = point;
  if (inPass_) return;
  refreshHover();
  runCalls(true);
}

void ViewHost::Runtime::pointerLeft() {
  pointer_.reset();
  if (inPass_) return;
  setHovered({});
  runCalls(true);
}

bool ViewHost::Runtime::click(Point point) {
  if (inPass_) return false;
  // A click may follow the one before within the same turn of the main queue.
  update();
  if (closed_) return false;
  std::vector<Node*> regions;
  root_->collectRegions(point, regions);
  const auto wanting =
      std::find_if(regions.rbegin(), regions.rend(), [](const Node* n) { return n->wantsClick(); });
  if (wanting == regions.rend()) return false;
  (*wanting)->click();
  return true;
}

bool ViewHost::Runtime::press(NodeId id) {
  if (inPass_) return false;
  update();
  Node* node = closed_ ? nullptr : presenter_.shownNode(id);
  Node* region = node ? node->clickRegion() : nullptr;
  if (!region) return false;
  region->click();
  return true;
}

void ViewHost::Runtime::reveal(NodeId id) {
  Node* node = presenter_.shownNode(id);
  if (node) ScrollNode::reveal(*node, {{}, node->size()});
}

void ViewHost::Runtime::refreshHover() {
  if (!pointer_) return;
  std::vector<Node*> regions;
  root_->collectRegions(*pointer_, regions);
  std::erase_if(regions, [](const Node* node) { return !node->wantsHover(); });
  setHovered(std::move(regions));
}

void ViewHost::Runtime::setHovered(std::vector<Node*> regions) {
  const std::vector<Node*> before = std::exchange(hovered_, std::move(regions));
  const auto isIn = [](const std::vector<Node*>& list, Node* node) {
    return std::find(list.begin(), list.end(), node) != list.end();
  };
  // Leaving comes first, so that a value shared by neighbours ends with the one entered.
  for (Node* node : before) {
    if (!isIn(hovered_, node)) node->hover(false);
  }
  for (Node* node : hovered_) {
    if (!isIn(before, node)) node->hover(true);
  }
}

}  // namespace viewkit
