// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"
#include "viewkit/ContextMenu.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/PlatformMetrics.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/View.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewkit {

// A node of the laid-out tree as the user would describe it.
//
//     const NodeDescription root = host.describe();
//     for (const NodeDescription& child : root.children) show(child.kind, child.frame);
struct NodeDescription {
  // The view's type: "Text", "HStack", "SettingsIconRow".
  std::string kind;
  Accessibility accessibility;
  // In window coordinates, points.
  Rect frame;
  // What the node draws beyond what assistive technology is told, in the words of
  // `describeVisual`: "caption semibold secondary", "symbol gear accent". Empty for nothing.
  std::string visual = {};
  std::vector<NodeDescription> children;
};

// How much work was done since the counters were last set to zero.
//
//     host.counters() = {};
//     player->isPlaying = true;
//     host.update();
//     EXPECT_EQ(host.counters().bodiesRun, 1u);
struct PassCounters {
  std::uint64_t bodiesRun = 0;
  std::uint64_t nodesLaidOut = 0;
  std::uint64_t nodesChanged = 0;
};

// A text that its view has refused, and that is therefore not stored.
//
//     for (const RefusedText& refused : host.refusedTexts()) show(refused.label, refused.problem);
struct RefusedText {
  // The accessibility label of the field.
  std::string label;
  std::string text;
  // Why it was refused, in the user's language.
  std::string problem;

  friend bool operator==(const RefusedText&, const RefusedText&) = default;
};

// The tree of views of one window. It keeps the presentation tree equal to the root view.
//
// Three passes make one update: *rebuild* runs the bodies that a write has marked, *layout*
// measures and places what their change reaches, *present* tells the observer the difference.
// Writes only mark; the update runs on the next turn of the main queue, once however many writes
// there were. Main thread only.
//
//     ViewHost host(root, environment, metrics);
//     host.setSize({.width = 840, .height = 600});
//     host.setObserver([](const PresentationChanges& changes) { repaint(changes.damage); });
//     host.update();
class ViewHost {
public:
  // The metrics outlive the host.
  ViewHost(View root, Environment environment, const PlatformMetrics& metrics);
  ~ViewHost();
  ViewHost(const ViewHost&) = delete;
  ViewHost& operator=(const ViewHost&) = delete;

  // The size that the window proposes to the root view, in points. Takes effect at the next update.
  void setSize(Size size);
  // The size of the root view for this proposal.
  Size sizeThatFits(ProposedSize proposal);

  // Rebuilds everything. Also to be called when the metrics give other answers than before.
  void setEnvironment(Environment environment);
  const Environment& environment() const;

  // Runs the pending update now instead of on the next turn of the main queue.
  void update();

  // The observer is called at the end of each update that changed the presentation. An empty
  // function removes it.
  using Observer = std::function<void(const PresentationChanges&)>;
  void setObserver(Observer observer);
  const PresentationNode& presentation() const;
  // The node with this id, if it is on the screen.
  const PresentationNode* node(NodeId id) const;

  // The pointer, in window coordinates. The host finds what lies under it: hover regions nest, a
  // click goes to the innermost region that wants one. Controls are the back end's own, so a click
  // on one does not come here; the pointer's movements over one do.
  void pointerMoved(Point point);
  void pointerLeft();
  // Returns whether a region took the click.
  bool click(Point point);

  // Does what a click on the node would do, for assistive technology. Returns whether a region took
  // it.
  bool press(NodeId id);

  // The context menu of the innermost view at the point, or around the node, that has one; nothing
  // where no view has one, or where it has no items.
  std::optional<ContextMenu> contextMenuAt(Point point);
  std::optional<ContextMenu> contextMenuOf(NodeId id);
  // Whether a view around the node has a context menu. Does not ask for its items.
  bool hasContextMenu(NodeId id) const;

  // Scrolls every scroll view around the node as little as brings the node into sight.
  void reveal(NodeId id);

  // Calls the views' own handlers of key presses, see `onKeyPress`. `focused` is the node that has
  // the keyboard, 0 for none. Returns whether one of them took the key.
  bool handleKey(const appkit::Event& press, NodeId focused);

  // Commits each text that was changed and not committed, and brings the views up to date. A back
  // end calls it before it closes the window, and when the user's session ends.
  void endEditing();
  // The refused texts that are still in their fields, on hidden pages too.
  std::vector<RefusedText> refusedTexts() const;

  // Advances the fades by this much time. A back end calls it for each frame while `isAnimating`.
  bool isAnimating() const;
  void advanceAnimations(std::chrono::duration<double> elapsed);
  void finishAnimations();

  // The laid-out tree in words, and the work done. For tests and for diagnosis.
  NodeDescription describe() const;
  PassCounters& counters();

  class Runtime;

private:
  // Functions that call handlers share it until they return: a handler may destroy the host.
  std::shared_ptr<Runtime> runtime_;
};

}  // namespace viewkit
