#pragma once

#include "passes/Fades.hpp"
#include "passes/Presenter.hpp"
#include "tree/Node.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/ViewHost.hpp"

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace viewkit {

class CompositeNode;

// The three passes over a tree of nodes, and what is marked for each.
class ViewHost::Runtime : public std::enable_shared_from_this<ViewHost::Runtime> {
public:
  Runtime(Environment environment, const PlatformMetrics& metrics);
  ~Runtime();
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  void open(const View& root);
  // Everything disappears; what a handler is in the middle of may still finish.
  void close();

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
  // Counts the sizes that the window has had.
  std::uint64_t layoutEra() const { return layoutEra_; }
  std::uint64_t layoutPass() const { return layoutPass_; }

  // Marks, made by nodes.
  void bodyChanged(CompositeNode& node);
  void bodyRan(CompositeNode& node);
  void layoutChanged(Node& node);
  void placementChanged(Node& node);
  void presentationChanged(Node& node);
  void childrenChanged(Node& presenting);
  void nodeGone(Node& node);
  NodeId addPresentation(Node& node) { return presenter_.add(node); }
  // The child has come into view, or is about to leave it; `presenting` is where it is seen.
  void inserted(Node& child);
  void removing(Node& child, Node& presenting);
  void fadeIn(Node& node);
  // Makes the call when layout is done and the tree is whole again. A call that answers a change is
  // given up when changes and answers chase each other without end.
  enum class CallKind { appearance, answer };
  void afterLayout(CallKind kind, std::function<void()> call);
  // Makes the call when layout is done, before every call that waits: what a field commits when it
  // disappears is stored before anything is told that it disappeared.
  void beforeDisappearing(std::function<void()> call);
  void scrollAfterLayout(std::weak_ptr<ScrollProxy::Target> target, ViewId id);

  void pointerMoved(Point point);
  void pointerLeft();
  bool click(Point point);
  bool press(NodeId id);
  void reveal(NodeId id);
  void endEditing();
  std::vector<RefusedText> refusedTexts();

  bool isAnimating() const { return !fades_.isEmpty(); }
  void advanceAnimations(std::chrono::duration<double> elapsed);
  void finishAnimations();

private:
  struct Call {
    CallKind kind;
    std::function<void()> run;
  };
  struct ScrollRequest {
    std::weak_ptr<ScrollProxy::Target> target;
    ViewId id;
  };
  // A node marked for a pass. The depth stands here too, so that the order holds even when the node
  // goes away meanwhile and leaves its place empty.
  struct Marked {
    Node* node;
    int depth;
  };

  void schedule();
  bool isMarked() const;
  void runUpdate();
  void runPasses();
  void rebuild();
  void layout();
  void remeasure();
  void placeMarked();
  void scroll();
  void runCalls(bool withAnswers);

  void present();
  void refreshHover();
  void setHovered(std::vector<Node*> regions);

  const PlatformMetrics& metrics_;
  Environment environment_;
  PassCounters counters_;
  Observer observer_;
  Size size_;
  std::uint64_t layoutEra_ = 0;
  std::uint64_t layoutPass_ = 1;
  bool sizeChanged_ = true;
  bool scheduled_ = false;
  // In one of the passes: the tree is not whole.
  bool inPass_ = false;
  bool closed_ = false;
  // Whether a change since the last update was made within an animation.
  bool animated_ = false;

  Presenter presenter_;
  Fades fades_;
  std::vector<Marked> markedBodies_;      // a heap, highest in the tree first
  std::vector<Marked> markedLayouts_;     // a heap, deepest first, while measuring
  std::vector<Marked> markedPlacements_;  // in any order
  // Bodies that another body marked while it ran wait for the next update.
  std::vector<Marked> deferredBodies_;
  std::deque<Call> calls_;
  std::vector<ScrollRequest> scrolls_;
  std::vector<Node*> hovered_;
  std::optional<Point> pointer_;
  std::unique_ptr<Node> root_;
};

}  // namespace viewkit
