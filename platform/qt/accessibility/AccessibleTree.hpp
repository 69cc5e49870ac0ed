#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessible>

#include <unordered_map>
#include <vector>

namespace qt {

class AccessibleNode;
class ControlWidget;
class Mirror;

// What assistive technology is told of a window: the presentation tree without the nodes that say
// nothing. Painted nodes get an interface of their own here, controls have that of their widget.
class AccessibleTree {
public:
  explicit AccessibleTree(Mirror& mirror) : mirror_(mirror) {}
  ~AccessibleTree();
  AccessibleTree(const AccessibleTree&) = delete;
  AccessibleTree& operator=(const AccessibleTree&) = delete;

  Mirror& mirror() const { return mirror_; }

  // The nearest nodes below that are told, in the tree's order.
  static std::vector<const viewkit::PresentationNode*> toldBelow(
      const viewkit::PresentationNode& node);
  QAccessibleInterface* interfaceOf(const viewkit::PresentationNode& node);
  // Of the nearest node above that is told, or of the window.
  QAccessibleInterface* parentOf(const viewkit::PresentationNode& node);
  QAccessibleInterface* windowInterface() const;

  // The control will be another thing.
  void forgetControl(ControlWidget& control);

  // Announces what a pass changed, to whom it may concern.
  void show(const viewkit::PresentationChanges& changes);

private:
  struct Told {
    viewkit::Accessibility accessibility;
    // The node it was announced under; 0 for the window.
    viewkit::NodeId parent = 0;
  };

  void announce(const viewkit::PresentationNode& node);
  void announceNew(const viewkit::PresentationNode& node);
  void forget(viewkit::NodeId id);

  Mirror& mirror_;
  std::unordered_map<viewkit::NodeId, QAccessible::Id> interfaces_;
  std::unordered_map<viewkit::NodeId, Told> told_;
};

}  // namespace qt
