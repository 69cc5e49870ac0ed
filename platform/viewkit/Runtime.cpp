#include "Runtime.hpp"

#include "CompositeNode.hpp"
#include "RootNode.hpp"
#include "foundation/MainQueue.hpp"
#include "viewkit/Animation.hpp"

#include <algorithm>
#include <set>
#include <utility>

namespace viewkit {

namespace {

bool withinAnimation = false;

bool contains(const std::vector<NodeId>& ids, NodeId id) { return std::find(ids.begin(), ids.end(), id) != ids.end(); }

}  // namespace

void withAnimation(const std::function<void()>& changes) {
  const bool outer = std::exchange(withinAnimation, true);
  changes();
  withinAnimation = outer;
}

ViewHost::Runtime::Runtime(const View& root, Environment environment, const PlatformMetrics& metrics)
    : metrics_(metrics), environment_(environment), self_(std::make_shared<Runtime*>(this)) {
  const View window(std::make_shared<const RootValue>(root));
  root_ = window.value()->makeNode();
  root_->mount(*this, nullptr, window, std::make_shared<const Inherited>(Inherited{.environment = environment}));
  schedule();
}

ViewHost::Runtime::~Runtime() {
  self_.reset();
  observer_ = nullptr;
  root_->setActive(false);
  runCalls();
  root_.reset();
}

void ViewHost::Runtime::setSize(Size size) {
  if (size == size_) return;
  size_ = size;
  sizeChanged_ = true;
  schedule();
}

Size ViewHost::Runtime::sizeThatFits(const ProposedSize& proposal) {
  rebuild();
  layout();
  return root_->sizeThatFits(proposal);
}

void ViewHost::Runtime::setEnvironment(Environment environment) {
  environment_ = environment;
  root_->forgetLayout();
  root_->become(root_->view(), std::make_shared<const Inherited>(Inherited{.environment = environment}));
  sizeChanged_ = true;
  schedule();
}

const PresentationNode* ViewHost::Runtime::node(NodeId id) const {
  const auto found = presenting_.find(id);
  return found != presenting_.end() && found->second->presented()->isShown ? &found->second->presented()->node
                                                                           : nullptr;
}

void ViewHost::Runtime::schedule() {
  if (withinAnimation) animated_ = true;
  if (scheduled_ || updating_) return;
  scheduled_ = true;
  foundation::MainQueue::mainQueue().async([weak = std::weak_ptr(self_)] {
    if (const auto self = weak.lock()) (*self)->update();
  });
}

void ViewHost::Runtime::bodyChanged(CompositeNode& node) {
  dirtyBodies_.insert(&node);
  schedule();
}

void ViewHost::Runtime::layoutChanged(Node& node) {
  dirtyLayouts_.insert(&node);
  schedule();
}

void ViewHost::Runtime::presentationChanged(Node& node) {
  dirtyPresentations_.insert(&node);
  schedule();
}

void ViewHost::Runtime::childrenChanged(Node& presenting) {
  dirtyChildren_.insert(&presenting);
  schedule();
}

NodeId ViewHost::Runtime::addPresentation(Node& node) {
  const NodeId id = nextId_++;
  presenting_.emplace(id, &node);
  return id;
}

void ViewHost::Runtime::nodeGone(Node& node) {
  dirtyLayouts_.erase(&node);
  dirtyPresentations_.erase(&node);
  dirtyChildren_.erase(&node);
  shown_.erase(&node);
  if (auto* composite = dynamic_cast<CompositeNode*>(&node)) dirtyBodies_.erase(composite);
  std::erase(hovered_, &node);
  std::erase_if(fades_, [&](const Fade& fade) { return fade.node == &node; });
  std::erase_if(ghosts_, [&](const Ghost& ghost) { return ghost.presenting == &node; });
  if (Node::Presented* presented = node.presented()) {
    hide(*presented);
    presenting_.erase(presented->node.id);
  }
}

void ViewHost::Runtime::afterUpdate(std::function<void()> call) {
  calls_.push_back(std::move(call));
  schedule();
}

void ViewHost::Runtime::update() {
  if (updating_) return;
  updating_ = true;
  scheduled_ = false;
  rebuild();
  layout();
  present();
  animated_ = false;
  updating_ = false;
  runCalls();
  refreshHover();
}

void ViewHost::Runtime::rebuild() {
  while (!dirtyBodies_.empty()) {
    // A body higher up may make those below it run, or go: it runs first.
    const auto first = std::min_element(dirtyBodies_.begin(), dirtyBodies_.end(),
                                        [](const Node* a, const Node* b) { return a->depth() < b->depth(); });
    CompositeNode* node = *first;
    dirtyBodies_.erase(first);
    node->runBody();
  }
}

void ViewHost::Runtime::layout() {
  struct DeepestFirst {
    bool operator()(const Node* a, const Node* b) const {
      return a->depth() != b->depth() ? a->depth() > b->depth() : std::less<>()(a, b);
    }
  };
  std::set<Node*, DeepestFirst> changed(dirtyLayouts_.begin(), dirtyLayouts_.end());
  dirtyLayouts_.clear();
  std::vector<Node*> unmoved;
  while (!changed.empty()) {
    Node* node = *changed.begin();
    changed.erase(changed.begin());
    // Where the size stays, nothing outside notices; where it does not, the parent is asked next.
    if (node->remeasuresEqually() || !node->parent()) {
      unmoved.push_back(node);
    } else {
      changed.insert(node->parent());
    }
  }
  if (std::exchange(sizeChanged_, false)) root_->place({}, size_);
  for (auto node = unmoved.rbegin(); node != unmoved.rend(); ++node) (*node)->placeAgain();
}

void ViewHost::Runtime::collectChildren(Node& presenting) {
  std::vector<Node::Presented*> children;
  presenting.collectPresentations(children);
  PresentationNode& node = presenting.presented()->node;
  node.children.clear();
  for (Node::Presented* child : children) {
    child->node.parent = &node;
    node.children.push_back(&child->node);
  }
  for (const Ghost& ghost : ghosts_) {
    if (ghost.presenting != &presenting) continue;
    for (const auto& each : ghost.nodes) {
      if (each->parent == &node) node.children.push_back(each.get());
    }
  }
}

void ViewHost::Runtime::present() {
  const auto changedChildren = std::exchange(dirtyChildren_, {});
  for (Node* node : changedChildren) collectChildren(*node);
  for (Node* node : changedChildren) {
    Node::Presented& presented = *node->presented();
    std::vector<NodeId> ids;
    for (const PresentationNode* child : presented.node.children) {
      if (child->id != 0) ids.push_back(child->id);
    }
    for (const NodeId old : presented.shownChildren) {
      const auto found = presenting_.find(old);
      if (!contains(ids, old) && found != presenting_.end()) hide(*found->second->presented());
    }
    presented.shownChildren = std::move(ids);
  }
  show(*root_->presented());
  for (Node* node : changedChildren) {
    if (node->presented()->isShown) show(*node->presented());
  }

  PresentationChanges changes;
  auto moved = std::exchange(dirtyPresentations_, {});
  moved.insert(changedChildren.begin(), changedChildren.end());
  moved.insert(shown_.begin(), shown_.end());
  for (Node* node : moved) {
    Node::Presented& presented = *node->presented();
    if (!presented.isShown) continue;
    const bool isNew = shown_.contains(node);
    const bool hasContentOfItsOwn = !dirtyChildren_.contains(node);
    if (!isNew && hasContentOfItsOwn) damage_.push_back(presented.shownFrame);
    noteShownFrames(presented);
    damage_.push_back(presented.shownFrame);
    changes.changed.push_back(&presented.node);
  }
  shown_.clear();
  counters_.nodesChanged += changes.changed.size();
  changes.removed = std::exchange(removed_, {});
  changes.damage = std::exchange(damage_, {});
  std::erase_if(changes.damage, [](const Rect& rect) { return rect.isEmpty(); });
  if (observer_ && (!changes.changed.empty() || !changes.removed.empty() || !changes.damage.empty())) {
    observer_(changes);
  }
}

void ViewHost::Runtime::show(Node::Presented& presented) {
  if (!presented.isShown) {
    presented.isShown = true;
    shown_.insert(presenting_.at(presented.node.id));
  }
  for (const PresentationNode* child : presented.node.children) {
    const auto found = presenting_.find(child->id);
    if (found != presenting_.end() && !found->second->presented()->isShown) show(*found->second->presented());
  }
}

void ViewHost::Runtime::hide(Node::Presented& presented) {
  if (!presented.isShown) return;
  presented.isShown = false;
  removed_.push_back(presented.node.id);
  damage_.push_back(presented.shownFrame);
  for (const NodeId id : presented.shownChildren) {
    const auto found = presenting_.find(id);
    if (found != presenting_.end()) hide(*found->second->presented());
  }
}

void ViewHost::Runtime::noteShownFrames(Node::Presented& presented) {
  const Rect frame = presented.node.frameInWindow();
  const bool moved = frame.origin != presented.shownFrame.origin;
  presented.shownFrame = frame;
  if (!moved) return;
  for (const NodeId id : presented.shownChildren) {
    const auto found = presenting_.find(id);
    if (found != presenting_.end()) noteShownFrames(*found->second->presented());
  }
}

void ViewHost::Runtime::runCalls() {
  const auto calls = std::exchange(calls_, {});
  for (const auto& call : calls) call();
}

void ViewHost::Runtime::inserted(Node& child) {
  if (animated_) fadeIn(child);
}

void ViewHost::Runtime::fadeIn(Node& node) {
  if (environment_.reducedMotion) return;
  node.setFade(0);
  fades_.push_back({.node = &node});
}

PresentationNode& ViewHost::Runtime::copyInto(Ghost& ghost, const PresentationNode& original,
                                              const PresentationNode* parent) {
  PresentationNode& copy = *ghost.nodes.emplace_back(std::make_unique<PresentationNode>(original));
  copy.id = 0;
  copy.parent = parent;
  copy.accessibility = {};
  copy.tooltip.clear();
  copy.children.clear();
  if (copy.control()) copy.content = std::monostate();
  for (const PresentationNode* child : original.children) {
    if (child->id != 0) copy.children.push_back(&copyInto(ghost, *child, &copy));
  }
  return copy;
}

void ViewHost::Runtime::removing(Node& child, Node& presenting) {
  if (!animated_ || environment_.reducedMotion || !child.isActive()) return;
  Ghost ghost{.presenting = &presenting, .nodes = {}};
  std::vector<Node::Presented*> leaving;
  if (child.presented()) {
    leaving.push_back(child.presented());
  } else {
    child.collectPresentations(leaving);
  }
  for (const Node::Presented* each : leaving) {
    if (each->isShown) copyInto(ghost, each->node, &presenting.presented()->node);
  }
  if (!ghost.nodes.empty()) ghosts_.push_back(std::move(ghost));
}

void ViewHost::Runtime::removeGhost(const Ghost& ghost) {
  for (const auto& node : ghost.nodes) damage_.push_back(node->frameInWindow());
  childrenChanged(*ghost.presenting);
}

void ViewHost::Runtime::advanceAnimations(std::chrono::duration<double> elapsed) {
  const auto progress = [](double seconds) {
    // Slow at both ends.
    const double t = std::clamp(seconds / kDefaultAnimationDuration.count(), 0.0, 1.0);
    return t * t * (3 - 2 * t);
  };
  for (Fade& fade : fades_) {
    fade.elapsed += elapsed.count();
    fade.node->setFade(progress(fade.elapsed));
  }
  std::erase_if(fades_, [](const Fade& fade) { return fade.elapsed >= kDefaultAnimationDuration.count(); });
  for (Ghost& ghost : ghosts_) {
    ghost.elapsed += elapsed.count();
    for (const auto& node : ghost.nodes) {
      if (node->parent == &ghost.presenting->presented()->node) node->opacity = 1 - progress(ghost.elapsed);
      damage_.push_back(node->frameInWindow());
    }
    if (ghost.elapsed >= kDefaultAnimationDuration.count()) removeGhost(ghost);
  }
  std::erase_if(ghosts_, [](const Ghost& ghost) { return ghost.elapsed >= kDefaultAnimationDuration.count(); });
  update();
}

void ViewHost::Runtime::finishAnimations() {
  while (isAnimating()) advanceAnimations(kDefaultAnimationDuration);
}

void ViewHost::Runtime::pointerMoved(Point point) {
  pointer_ = point;
  refreshHover();
}

void ViewHost::Runtime::pointerLeft() {
  pointer_.reset();
  setHovered({});
}

bool ViewHost::Runtime::click(Point point) {
  std::vector<Node*> regions;
  root_->collectRegions(point, regions);
  const auto wanting = std::find_if(regions.rbegin(), regions.rend(), [](const Node* n) { return n->wantsClick(); });
  if (wanting == regions.rend()) return false;
  (*wanting)->click();
  return true;
}

void ViewHost::Runtime::refreshHover() {
  if (!pointer_) return;
  std::vector<Node*> regions;
  root_->collectRegions(*pointer_, regions);
  std::erase_if(regions, [](const Node* node) { return !node->wantsHover(); });
  setHovered(regions);
}

void ViewHost::Runtime::setHovered(const std::vector<Node*>& regions) {
  const std::vector<Node*> before = std::exchange(hovered_, regions);
  const auto isIn = [](const std::vector<Node*>& list, const Node* node) {
    return std::find(list.begin(), list.end(), node) != list.end();
  };
  // Leaving comes first, so that a value shared by neighbours ends with the one entered.
  for (Node* node : before) {
    if (!isIn(hovered_, node)) node->hover(false);
  }
  for (Node* node : regions) {
    if (!isIn(before, node)) node->hover(true);
  }
}

}  // namespace viewkit
