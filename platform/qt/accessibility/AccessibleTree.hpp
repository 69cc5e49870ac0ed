// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessible>
#include <QPoint>

#include <unordered_map>
#include <vector>

namespace qt {

class MirroredTree;

// The presentation tree of a window as assistive technology sees it: the accessible nodes, which
// are those with a role. A painted node has an interface of its own, owned here; a control has the
// interface of its widget. Main thread only.
class AccessibleTree {
public:
  // `tree` outlives the accessible tree.
  explicit AccessibleTree(MirroredTree& tree) : tree_(tree) {}
  ~AccessibleTree();
  AccessibleTree(const AccessibleTree&) = delete;
  AccessibleTree& operator=(const AccessibleTree&) = delete;

  MirroredTree& tree() const { return tree_; }
  const viewkit::PresentationNode& rootNode() const;

  // The nearest accessible nodes below a node, in the order of the tree.
  static std::vector<const viewkit::PresentationNode*> childNodes(
      const viewkit::PresentationNode& node);
  static int childCount(const viewkit::PresentationNode& node);
  // Null when there is no such child.
  QAccessibleInterface* childOf(const viewkit::PresentationNode& node, int index);
  // -1 when `child` is no child of the node.
  int indexIn(const viewkit::PresentationNode& node, const QAccessibleInterface* child);
  // The topmost child at a point of the screen; null when there is none.
  QAccessibleInterface* childAt(const viewkit::PresentationNode& node, QPoint onScreen);

  QAccessibleInterface* interfaceOf(const viewkit::PresentationNode& node);
  // The interface of the nearest accessible ancestor, or of the window.
  QAccessibleInterface* parentOf(const viewkit::PresentationNode& node);
  QAccessibleInterface* windowInterface() const;

  // Whether the node is the selected item of the list that has the focus.
  bool isFocusedItem(const viewkit::PresentationNode& node) const;
  // The selected item of a list; null when there is none.
  QAccessibleInterface* selectedItemOf(const viewkit::PresentationNode& list);
  // Announces that the focus is on the selected item of a list. Called after the list has taken it.
  void announceFocusIn(const viewkit::PresentationNode& list);

  // Announces the changes of one update. Called when the widgets show them.
  void show(const viewkit::PresentationChanges& changes);

private:
  // What was announced about a node.
  struct Announced {
    viewkit::Accessibility accessibility;
    // The accessible parent; 0 for the window.
    viewkit::NodeId parent = 0;
  };

  void announce(const viewkit::PresentationNode& node);
  void announceNew(const viewkit::PresentationNode& node);
  void announceDifference(const viewkit::PresentationNode& node,
                          const viewkit::Accessibility& before);
  void announceSelection(const viewkit::PresentationNode& item);
  void forget(viewkit::NodeId id);

  MirroredTree& tree_;
  std::unordered_map<viewkit::NodeId, QAccessible::Id> interfaces_;
  std::unordered_map<viewkit::NodeId, Announced> announced_;
};

}  // namespace qt
