#pragma once

#include "Node.hpp"
#include "viewkit/ViewHost.hpp"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace viewkit {

class CompositeNode;

// The three passes over a tree of nodes, and what is marked for each.
class ViewHost::Runtime {
public:
  Runtime(const View& root, Environment environment, const PlatformMetrics& metrics);
  ~Runtime();
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  const PlatformMetrics& metrics() const { return metrics_; }
  const Environment& environment() const { return environment_; }
  PassCounters& counters() { return counters_; }

  void setSize(Size size);
  Size sizeThatFits(const ProposedSize& proposal);
  void setEnvironment(Environment environment);
  void setObserver(Observer observer) { observer_ = std::move(observer); }
  void update();

  Node& root() { return *root_; }
  const PresentationNode* node(NodeId id) const;

  // Marks, made by nodes.
  void bodyChanged(CompositeNode& node);
  void layoutChanged(Node& node);
  void presentationChanged(Node& node);
  void childrenChanged(Node& presenting);
  void nodeGone(Node& node);
  NodeId addPresentation(Node& node);
  // The child has come into view, or is about to leave it; `presenting` is where it is seen.
  void inserted(Node& child);
  void removing(Node& child, Node& presenting);
  void fadeIn(Node& node);
  // Makes the call when the update is over and the tree is whole again.
  void afterUpdate(std::function<void()> call);

  void pointerMoved(Point point);
  void pointerLeft();
  bool click(Point point);

  bool isAnimating() const { return !fades_.empty() || !ghosts_.empty(); }
  void advanceAnimations(std::chrono::duration<double> elapsed);
  void finishAnimations();

private:
  // What is left of a branch that fades out: a picture of it.
  struct Ghost {
    Node* presenting;
    std::vector<std::unique_ptr<PresentationNode>> nodes;
    double elapsed = 0;
  };
  struct Fade {
    Node* node;
    double elapsed = 0;
  };

  void schedule();
  void rebuild();
  void layout();
  void present();
  void runCalls();

  void collectChildren(Node& presenting);
  void show(Node::Presented& presented);
  void hide(Node::Presented& presented);
  void noteShownFrames(Node::Presented& presented);
  PresentationNode& copyInto(Ghost& ghost, const PresentationNode& original, const PresentationNode* parent);
  void removeGhost(const Ghost& ghost);

  void refreshHover();
  void setHovered(const std::vector<Node*>& regions);

  const PlatformMetrics& metrics_;
  Environment environment_;
  PassCounters counters_;
  Observer observer_;
  Size size_;
  bool sizeChanged_ = true;
  bool scheduled_ = false;
  bool updating_ = false;
  // Whether a change since the last update was made within an animation.
  bool animated_ = false;
  NodeId nextId_ = 1;

  std::unordered_map<NodeId, Node*> presenting_;
  std::unordered_set<CompositeNode*> dirtyBodies_;
  std::unordered_set<Node*> dirtyLayouts_;
  std::unordered_set<Node*> dirtyPresentations_;
  std::unordered_set<Node*> dirtyChildren_;
  std::unordered_set<Node*> shown_;  // in this update, for the first time
  std::vector<Rect> damage_;
  std::vector<NodeId> removed_;
  std::vector<std::function<void()>> calls_;
  std::vector<Fade> fades_;
  std::vector<Ghost> ghosts_;
  std::vector<Node*> hovered_;
  std::optional<Point> pointer_;
  // Dies first, so that work queued for later knows.
  std::unique_ptr<Node> root_;
  std::shared_ptr<Runtime*> self_;
};

}  // namespace viewkit
