#pragma once

#include "viewkit/Environment.hpp"
#include "viewkit/PlatformMetrics.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/View.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace viewkit {

// A node of the laid-out tree as a person would describe it.
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
struct PassCounters {
  std::uint64_t bodiesRun = 0;
  std::uint64_t nodesLaidOut = 0;
  std::uint64_t nodesChanged = 0;
};

// A text that its view refused, which is therefore not stored.
struct RefusedText {
  // The field's name to assistive technology.
  std::string label;
  std::string text;
  // Why it was refused, in the person's language.
  std::string problem;

  friend bool operator==(const RefusedText&, const RefusedText&) = default;
};

// A tree of views at work in a window: it keeps what is on the screen equal to the root view.
//
// Three passes make one update: *rebuild* runs the bodies that a write has marked, *layout*
// measures and places what their change reaches, *present* tells the observer the difference.
// Writes only mark; the update runs on the next turn of the main queue, once however many writes
// there were. Main thread only.
class ViewHost {
public:
  // The metrics outlive the host.
  ViewHost(View root, Environment environment, const PlatformMetrics& metrics);
  ~ViewHost();
  ViewHost(const ViewHost&) = delete;
  ViewHost& operator=(const ViewHost&) = delete;

  // The space that the window offers the root view, points. Takes effect at the next update.
  void setSize(Size size);
  // What the root view takes when it is offered `proposal`.
  Size sizeThatFits(ProposedSize proposal);

  // A new environment, or metrics that answer differently from now on: everything is rebuilt.
  void setEnvironment(Environment environment);
  const Environment& environment() const;

  // Runs what is marked now instead of on the next turn.
  void update();

  // Tells the observer of each difference, right after the update that made it. Nothing takes the
  // observer away.
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
  // Whether anything wanted it.
  bool click(Point point);

  // What a click on the node would do, for assistive technology: the node is found by id, a region
  // that wants clicks takes it. Whether anything wanted it.
  bool press(NodeId id);

  // Scrolls whatever the node stands in, as little as it takes to bring the node into sight.
  void reveal(NodeId id);

  // Commits each text that was changed and not committed, and brings the views up to date. A back
  // end calls it before it closes the window, and when the person's session ends.
  void endEditing();
  // The texts that stand refused in their fields, those of hidden pages too.
  std::vector<RefusedText> refusedTexts() const;

  // Fades in progress move on by this much time. A back end calls it for each frame while
  // `isAnimating`.
  bool isAnimating() const;
  void advanceAnimations(std::chrono::duration<double> elapsed);
  void finishAnimations();

  // For tests and for people: the whole laid-out tree, the work done.
  NodeDescription describe() const;
  PassCounters& counters();

  class Runtime;

private:
  // Shared with the calls that are under way: a handler may destroy the host.
  std::shared_ptr<Runtime> runtime_;
};

}  // namespace viewkit
