// SPDX-License-Identifier: MIT
#pragma once

#include "input/KeyHandler.hpp"
#include "passes/Animation.hpp"
#include "passes/Handlers.hpp"
#include "passes/Input.hpp"
#include "passes/Layout.hpp"
#include "passes/Present.hpp"
#include "passes/Rebuild.hpp"
#include "passes/Scroll.hpp"
#include "tree/NodeServices.hpp"
#include "viewkit/ViewHost.hpp"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace viewkit {

// Schedules the passes: collects the marks of a turn of the main queue, and runs the passes once,
// in the order rebuild, layout, scroll, input, handlers, present. Handlers that mark anything start
// another round before it is presented.
class ViewHost::Runtime final : public NodeServices,
                                public std::enable_shared_from_this<ViewHost::Runtime> {
public:
  Runtime(Environment environment, const PlatformMetrics& metrics);
  ~Runtime() override;

  void open(const View& root);
  // Everything disappears. A handler that is running goes on.
  void close();

  const Environment& environment() const { return environment_; }
  void setSize(Size size);
  Size sizeThatFits(const ProposedSize& proposal);
  void setEnvironment(Environment environment);
  void setObserver(Observer observer) { observer_ = std::move(observer); }
  void update();

  Node& root() { return *root_; }
  const PresentationNode* node(NodeId id) const;

  void pointerMoved(std::optional<Point> point);
  bool click(Point point);
  bool press(NodeId id);
  std::optional<ContextMenu> contextMenuAt(Point point);
  std::optional<ContextMenu> contextMenuOf(NodeId id);
  bool hasContextMenu(NodeId id) const;
  void reveal(NodeId id);
  bool handleKey(const appkit::Event& press, NodeId focused);
  void endEditing();

  bool isAnimating() const { return animation_.isRunning(); }
  void advanceAnimations(std::chrono::duration<double> elapsed);
  void finishAnimations();

private:
  void markBody(CompositeNode& node) override;
  void markLayout(Node& node) override;
  void markPlacement(Node& node) override;
  void markPresentation(Node& node) override;
  void markChildren(Node& presenting) override;
  void bodyRuns(CompositeNode& node) override { rebuild_.bodyRuns(node); }
  NodeId addPresentation(Node& node) override { return present_.add(node); }
  void nodeGone(Node& node) override;
  void childInserted(Node& child) override { animation_.childInserted(child); }
  void childRemoved(Node& child, Node& presenting) override {
    animation_.childRemoved(child, presenting, present_);
  }
  void fadeIn(Node& node) override { animation_.fadeIn(node); }
  void callAfterLayout(HandlerKind kind, std::function<void()> handler) override;
  void callFirstAfterLayout(std::function<void()> handler) override;
  void scrollAfterLayout(std::weak_ptr<ScrollProxy::Target> target, ViewId id) override;
  void focusAfterUpdate(std::weak_ptr<ScrollProxy::Target> target, ViewId id) override;
  void addKeyHandler(KeyHandler& handler) override { keyHandlers_.push_back(&handler); }
  void removeKeyHandler(KeyHandler& handler) override { std::erase(keyHandlers_, &handler); }

  static std::optional<ContextMenu> contextMenuOf(Node* node);
  void schedule();
  // Whether a pass before present has anything to do.
  bool isMarked() const;
  // Whether the update has anything to do.
  bool hasWork() const;
  void runUpdate();
  void rebuildAndLayOut();
  // The control that gets the keyboard, 0 for none.
  NodeId focusRequested();
  void present();

  Environment environment_;
  Observer observer_;
  bool scheduled_ = false;
  // In a pass the tree is not whole: no other pass may begin.
  bool inPass_ = false;
  bool closed_ = false;

  RebuildPass rebuild_;
  LayoutPass layout_;
  ScrollPass scroll_;
  InputPass input_;
  Handlers handlers_;
  std::vector<KeyHandler*> keyHandlers_;
  PresentPass present_;
  AnimationPass animation_;

  std::unique_ptr<Node> root_;
};

}  // namespace viewkit
