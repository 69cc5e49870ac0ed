// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PlatformMetrics.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/ViewHost.hpp"

#include <cstdint>
#include <functional>
#include <memory>

namespace viewkit {

class CompositeNode;
class KeyHandler;
class Node;

// The state of layout that all nodes of a host share.
struct LayoutProgress {
  // Counts the sizes that the window has had. Answers of an earlier era are rarely asked for again.
  std::uint64_t era = 0;
  // Counts the layout passes.
  std::uint64_t pass = 1;
};

// Handlers of events (appearance, disappearance, hover) are always called. Handlers of changes are
// skipped when a change and its handler cause each other without end.
enum class HandlerKind { event, change };

// What a node may ask of the host that it belongs to. The host implements it and outlives its
// nodes. Main thread only.
class NodeServices {
public:
  NodeServices(const NodeServices&) = delete;
  NodeServices& operator=(const NodeServices&) = delete;
  virtual ~NodeServices() = default;

  // Marks: a pass of the coming update visits the node. A node that is marked already must not be
  // marked again; see Node::marks.
  virtual void markBody(CompositeNode& node) = 0;
  virtual void markLayout(Node& node) = 0;
  virtual void markPlacement(Node& node) = 0;
  virtual void markPresentation(Node& node) = 0;
  virtual void markChildren(Node& presenting) = 0;

  // The node runs its body now, so a mark for it is served.
  virtual void bodyRuns(CompositeNode& node) = 0;
  // The id of the presentation that the node has from now on.
  virtual NodeId addPresentation(Node& node) = 0;
  // The node is being destroyed: it leaves every list.
  virtual void nodeGone(Node& node) = 0;

  // A child was made, or is about to be removed from what `presenting` shows. Either is faded when
  // the change was made within an animation.
  virtual void childInserted(Node& child) = 0;
  virtual void childRemoved(Node& child, Node& presenting) = 0;
  // Fades the node in, unless motion is reduced.
  virtual void fadeIn(Node& node) = 0;

  // Calls the handler after layout, when the tree is whole again.
  virtual void callAfterLayout(HandlerKind kind, std::function<void()> handler) = 0;
  // Calls it before every handler that waits. A field that disappears stores its text this way
  // before any handler is told of the disappearance.
  virtual void callFirstAfterLayout(std::function<void()> handler) = 0;
  // Scrolls the view with this id into sight after layout.
  virtual void scrollAfterLayout(std::weak_ptr<ScrollProxy::Target> target, ViewId id) = 0;
  // The same at the end of the update, when the handlers have been called; the first control in the
  // view gets the keyboard.
  virtual void focusAfterUpdate(std::weak_ptr<ScrollProxy::Target> target, ViewId id) = 0;

  // Calls the handler for key presses until it is removed, which a node does at the latest when it
  // disappears.
  virtual void addKeyHandler(KeyHandler& handler) = 0;
  virtual void removeKeyHandler(KeyHandler& handler) = 0;

  // Read for every node that is measured, and therefore not behind virtual functions.
  const PlatformMetrics& metrics;
  LayoutProgress layout;
  PassCounters counters;

protected:
  explicit NodeServices(const PlatformMetrics& metrics) : metrics(metrics) {}
};

}  // namespace viewkit
