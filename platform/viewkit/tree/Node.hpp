#pragma once

#include "tree/FunctionRef.hpp"
#include "tree/Inherited.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/View.hpp"
#include "viewkit/ViewHost.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewkit {

class ScrollNode;
class TextEditing;

enum class Axis { horizontal, vertical };

// How large something is when it is offered a certain space, and where the first line of its text
// stands.
struct Measurement {
  Size size;
  std::optional<double> firstBaseline = std::nullopt;

  // What stands on one line with the others where they are aligned by their first lines.
  double line() const { return firstBaseline.value_or(size.height); }
  friend bool operator==(const Measurement&, const Measurement&) = default;
};

// What works for one view at one place of the tree as long as the view's identity lasts: it holds
// the newest description of the view, its children's nodes, its place and, where there is something
// to see, its presentation.
class Node {
public:
  Node() = default;
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  virtual ~Node();

  // Rebuild. `become` takes a newer description of the same view and newer surroundings; it does
  // nothing when neither is new.
  void mount(ViewHost::Runtime& runtime, Node* parent, View view, InheritedPtr inherited);
  bool canBecome(const View& next) const;
  void become(View next, InheritedPtr inherited);
  const View& view() const { return view_; }
  const Inherited& inherited() const { return *inherited_; }
  // Whether the node is on the screen or only kept: the hidden pages of a tab view are not active.
  void setActive(bool active);
  bool isActive() const { return active_; }
  // Runs the body that a write has marked, for the nodes that have one.
  virtual void runBody() {}

  // Layout.
  Measurement measured(const ProposedSize& offer);
  Size sizeThatFits(const ProposedSize& offer) { return measured(offer).size; }
  void place(Point origin, Size size);
  // In the coordinates of the presentation above.
  Point origin() const { return origin_; }
  Size size() const { return size_; }
  int depth() const { return depth_; }
  Node* parent() const { return parent_; }
  // Answers earlier questions again after a change; whether every answer is what it was. If not,
  // the parent has to be asked again too.
  bool remeasuresEqually();
  // Places the children anew within the node's own frame, which stays.
  void placeAgain();
  // Forgets every answer of the branch, and that anything was placed.
  void forgetLayout();
  // Where the node stands in the coordinates of a presentation above it.
  Point originWithin(const Node& presenting) const;
  // Whether the node keeps its answers, and they say all that the node above has to know of a
  // change. Not where the content keeps the same ones, or where an answer costs nothing.
  virtual bool answersForItself() const { return true; }
  // What of an offer the answer depends on: offers that differ in nothing else have one answer.
  virtual ProposedSize heeded(const ProposedSize& offer) const { return offer; }
  virtual ScrollNode* asScrollNode() { return nullptr; }
  // The editing of a text field.
  virtual TextEditing* textEditing() { return nullptr; }
  // The direction in which a container places its children one after the other.
  virtual std::optional<Axis> stackAxis() const { return std::nullopt; }
  // In a stack: whether the others get all they can use before it gets more than its least.
  virtual bool givesWay() const { return false; }

  // Present. A node without a presentation of its own shows what its children show, in the
  // presentation of the nearest ancestor that has one; the root always has one.
  struct Presented {
    PresentationNode node;
    // What was last shown: whether at all, where in the window, how much of it was in sight, and
    // with which children.
    bool isShown = false;
    bool isNew = false;
    Point shownOrigin;
    Rect shownFrame;
    std::vector<NodeId> shownChildren;
    // At which place of its parent's children.
    std::size_t place = 0;
    // The node's own opacity, and how far it has faded in.
    double opacity = 1;
    double fade = 1;
  };
  Presented* presented() { return presented_.get(); }
  const Presented* presented() const { return presented_.get(); }
  Node& presentingSelfOrAncestor();
  void collectPresentations(std::vector<Presented*>& into);
  void setFade(double fade);

  // A node that speaks for all it contains says their words where it has no label of its own.
  virtual bool speaksForContents() const { return false; }
  virtual void contentsChanged() {}
  // The labels of what the node shows, joined by spaces; those of controls that speak for
  // themselves only where there are no others.
  std::string spokenContents();

  // Every child, shown or not, in the order of painting.
  using Visitor = FunctionRef<void(Node&)>;
  virtual void visitChildren(const Visitor& visit) { static_cast<void>(visit); }
  virtual void visitShownChildren(const Visitor& visit) { visitChildren(visit); }

  virtual std::string kind() const { return view_.value()->kind(); }
  NodeDescription describe(Point parentOrigin);

  // What stands where in the branch: its frame in the node's own coordinates.
  struct Found {
    Node* node = nullptr;
    Rect frame;
  };
  virtual Found find(const ViewId& id);

  // The regions under a point, in the coordinates of the presentation above; outermost first.
  void collectRegions(Point point, std::vector<Node*>& into);
  virtual bool wantsHover() const { return false; }
  virtual void hover(bool inside) { static_cast<void>(inside); }
  virtual bool wantsClick() const { return false; }
  virtual void click() {}
  // The region that takes a press of this node: one inside of it, or else the next one around it
  // alone.
  Node* clickRegion();

  // What the runtime has marked the node for.
  struct Marks {
    bool body = false;
    bool layout = false;
    bool placement = false;
    bool presentation = false;
    bool children = false;
  };
  Marks marks;

protected:
  // The view or the surroundings are new: brings children and presentation up to date. `before` is
  // the view's last description; there is none the first time.
  virtual void apply(const ViewValue* before) = 0;
  virtual Measurement measure(const ProposedSize& proposal) = 0;
  virtual void placeChildren() {}
  virtual void activeChanged() {}
  virtual bool hasSameIdentity(const ViewValue& next) const;

  template <class Value>
  const Value& valueAs() const {
    return static_cast<const Value&>(*view_.value());
  }
  const InheritedPtr& inheritedPtr() const { return inherited_; }
  ViewHost::Runtime& runtime() const { return *runtime_; }

  // Makes, keeps, replaces or removes the node of one child.
  void reconcile(std::unique_ptr<Node>& child, const View& next, const InheritedPtr& inherited);
  std::unique_ptr<Node> makeChild(const View& view, const InheritedPtr& inherited);
  void removeChild(std::unique_ptr<Node> child);

  // What the node says of itself has changed: its answers to layout; where it places its children;
  // which presentations stand below it, or that and its answers as well.
  void layoutChanged();
  void placementChanged();
  void shownChildrenChanged();
  void childrenChanged();
  // From the first call on the node has a presentation of its own.
  PresentationNode& present();
  void presentationChanged();
  void setOpacity(double opacity);
  // Changes of the presentation that are told only if there is anything new to see or to say.
  void setContent(decltype(PresentationNode::content) content);
  // With the label, help and selection that the surroundings say for this one node.
  void setAccessibility(Accessibility accessibility);

  // The surroundings without what is meant for one node only.
  const InheritedPtr& inheritedByChildren();
  void placeChild(Node& child, Point origin, Size size);

private:
  // Packed, for a node has many: there is no length that is less than any other.
  struct Answer {
    Answer(const ProposedSize& proposal, const Measurement& measurement, std::uint64_t era);
    ProposedSize proposal() const;
    Measurement measurement() const;
    bool answers(const Answer& question) const {
      return proposedWidth == question.proposedWidth && proposedHeight == question.proposedHeight;
    }

    double proposedWidth;
    double proposedHeight;
    Size size;
    double firstBaseline;
    std::uint64_t era;
  };

  Node& presentingAncestor() const;
  bool speaksForItself() const;
  void appendSpoken(std::string& into, bool withControls);

  ViewHost::Runtime* runtime_ = nullptr;
  Node* parent_ = nullptr;
  int depth_ = 0;
  View view_;
  InheritedPtr inherited_;
  HandedOn withoutForOne_;
  bool active_ = false;

  std::vector<Answer> answers_;
  // An answer that the parent may have relied on was dropped to keep the list short.
  bool forgotAnswers_ = false;
  // The last layout pass that the node did any work in.
  std::uint64_t laidOutIn_ = 0;
  Point origin_;
  Size size_;
  bool placed_ = false;
  bool childrenMisplaced_ = false;

  std::unique_ptr<Presented> presented_;
};

// The position of something within a container.
Point aligned(Size inner, Size outer, Alignment alignment);

}  // namespace viewkit
