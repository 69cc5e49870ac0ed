// SPDX-License-Identifier: MIT
#pragma once

#include "support/FunctionRef.hpp"
#include "tree/Inherited.hpp"
#include "tree/LayoutAnswers.hpp"
#include "tree/Marks.hpp"
#include "tree/Measurement.hpp"
#include "tree/Presented.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/View.hpp"

#include <cstdint>
#include <memory>
#include <optional>

namespace viewkit {

class NodeServices;
class PointerRegion;
class ScrollRegion;

// The retained element of a view: it lives as long as the view's identity and holds the view's
// newest description, the nodes of its children and its place. A node that draws, is a control or
// is spoken has a presentation. A parent owns its children; the host owns the root.
//
// A kind of view derives from Node and overrides `apply`, `measure` and, with children,
// `visitChildren` and `placeChildren`. The passes call them.
class Node {
public:
  Node() = default;
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  virtual ~Node();

  // Identity.

  // Must be called once, before anything else.
  void mount(NodeServices& services, Node* parent, View view, InheritedPtr inherited);
  // Whether `next` describes the view of this node.
  bool canBecome(const View& next) const;
  // Takes a newer description of the same view and what it inherits now. Does nothing when neither
  // is new.
  void become(View next, InheritedPtr inherited);
  const View& view() const { return view_; }
  const Inherited& inherited() const { return *inherited_; }
  Node* parent() const { return parent_; }
  // The distance from the root.
  int depth() const { return depth_; }
  // An inactive node is kept but not on the screen: the hidden pages of a tab view.
  void setActive(bool active);
  bool isActive() const { return active_; }
  NodeServices& services() const { return *services_; }

  // Children.

  using Visitor = FunctionRef<void(Node&)>;
  // Every child, in the order of painting.
  virtual void visitChildren(const Visitor& visit) { static_cast<void>(visit); }
  // The children that are not hidden.
  virtual void visitShownChildren(const Visitor& visit) { visitChildren(visit); }

  // Layout.

  // The answer to a proposed size, from the cache if it is there.
  Measurement measured(const ProposedSize& proposal);
  Size sizeThatFits(const ProposedSize& proposal) { return measured(proposal).size; }
  // Measures the answers in the cache again after a change. Returns whether all that the parent may
  // have used are what they were; if not, the parent has to measure again as well.
  bool remeasuresEqually();
  void place(Point origin, Size size);
  // Places the children again within the node's own frame, which stays.
  void placeAgain();
  // Drops the answers and the places of the whole branch.
  void forgetLayout();
  // In the coordinates of the nearest presentation above.
  Point origin() const { return origin_; }
  Size size() const { return size_; }
  // The origin in the coordinates of `presenting`, a presentation above.
  Point originWithin(const Node& presenting) const;
  // Whether measurements are kept. Not where an answer costs nothing, or only repeats that of the
  // content: a change inside then goes on to the parent.
  virtual bool cachesMeasurements() const { return true; }
  // The part of a proposal that the answer depends on. Proposals with the same part share one
  // answer.
  virtual ProposedSize relevantPart(const ProposedSize& proposal) const { return proposal; }
  // The direction in which a stack places its children.
  virtual std::optional<Axis> stackAxis() const { return std::nullopt; }
  // In a stack: whether all others are served before this node gets more than its minimum.
  virtual bool takesLeftoverSpace() const { return false; }

  // Presentation. What a node without one shows belongs to the nearest presentation above; the root
  // always has one.

  Presented* presented() { return presented_.get(); }
  const Presented* presented() const { return presented_.get(); }
  Node& presentingSelfOrAncestor();
  // Marks the presentation as changed, which the setters of Presented do themselves.
  void presentationChanged();

  // What only some nodes are.

  // Renews the label if the node says the labels of its contents where it has none of its own.
  // Returns whether it does.
  virtual bool refreshSpokenContents() { return false; }
  virtual PointerRegion* pointerRegion() { return nullptr; }
  virtual ScrollRegion* scrollRegion() { return nullptr; }
  // Where the view with this id stands, in the coordinates of this node, if the node is that view
  // or would make it.
  virtual std::optional<Rect> frameOf(const ViewId& id) const;

  Marks marks;

protected:
  // Brings children and presentation up to date with the view and what it inherits. `before` is the
  // view's last description, null the first time.
  virtual void apply(const ViewValue* before) = 0;
  // Computes the answer to a proposal.
  virtual Measurement measure(const ProposedSize& proposal) = 0;
  // Calls `placeChild` for each shown child.
  virtual void placeChildren() {}
  virtual void activeChanged() {}
  // Whether a description of the same type is of the same view.
  virtual bool hasSameIdentity(const ViewValue& next) const;

  template <class Value>
  const Value& valueAs() const {
    return static_cast<const Value&>(*view_.value());
  }
  const InheritedPtr& inheritedPtr() const { return inherited_; }
  // Without what was given to this node alone.
  const InheritedPtr& inheritedByChildren();

  // Makes, keeps, replaces or removes the node of one child.
  void reconcile(std::unique_ptr<Node>& child, const View& next, const InheritedPtr& inherited);
  std::unique_ptr<Node> makeChild(const View& view, const InheritedPtr& inherited);
  void removeChild(std::unique_ptr<Node> child);
  // `origin` is in this node's own coordinates.
  void placeChild(Node& child, Point origin, Size size);

  // Gives the node a presentation of its own if it has none.
  Presented& present();

  // Marks. The node's measurements may be others now.
  void layoutChanged();
  // The node places its children differently, its measurements stay.
  void placementChanged();
  // Other presentations stand below the node.
  void shownChildrenChanged();
  // Both: the children are others.
  void childrenChanged();

private:
  Node& presentingAncestor() const { return parent_->presentingSelfOrAncestor(); }

  NodeServices* services_ = nullptr;
  Node* parent_ = nullptr;
  int depth_ = 0;
  View view_;
  InheritedPtr inherited_;
  InheritedOverride inheritedByChildren_;
  bool active_ = false;

  LayoutAnswers answers_;
  // The last layout pass in which the node measured anything.
  std::uint64_t lastMeasuredPass_ = 0;
  Point origin_;
  Size size_;
  bool placed_ = false;
  // A child's measurements have changed since the children were placed.
  bool childrenMisplaced_ = false;

  std::unique_ptr<Presented> presented_;
};

}  // namespace viewkit
