// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Responder.hpp"
#include "viewkit/PresentationNode.hpp"

#include <QWidget>

#include <functional>
#include <utility>
#include <variant>

namespace qt {

class MirroredTree;

// The widget of a control in the presentation tree: it shows its node and calls the node's
// functions when the user acts. Each control derives from this class and from a Qt widget. Qt
// owns it through the widget's parent. Main thread only.
class ControlWidget {
public:
  // The node belongs to the tree. The tree outlives the node.
  ControlWidget(MirroredTree& tree, const viewkit::PresentationNode& node)
      : tree_(tree), node_(&node), kind_(node.control()->index()) {}
  ControlWidget(const ControlWidget&) = delete;
  ControlWidget& operator=(const ControlWidget&) = delete;
  virtual ~ControlWidget() = default;

  virtual QWidget& widget() = 0;
  const QWidget& widget() const { return const_cast<ControlWidget&>(*this).widget(); }
  // Called when the node's content or attributes changed.
  virtual void refresh() { widget().update(); }
  // Whether the widget shows the children of the node.
  virtual bool holdsChildren() const { return false; }
  // The origin of the node in the coordinates of the widget.
  virtual QPoint contentOrigin() const { return {}; }
  // Called when the children of the node have been placed.
  virtual void contentsChanged() {}
  // Whether the widget lies above the whole window, like a popover.
  virtual bool floats() const { return false; }
  // The geometry of the widget for a node with this frame. Both are in window coordinates.
  virtual QRect placeFor(const QRect& frame) const { return frame; }
  // Ends the editing of a text.
  virtual void endEditing() {}
  // Closes the menu or dialog that the control opened.
  virtual void closeOpened() {}
  virtual appkit::Responder& responder() { return responder_; }

  // Whether a widget of this kind can show the node.
  virtual bool shows(const viewkit::PresentationNode& node) const {
    return node.control() && node.control()->index() == kind_;
  }
  // Whether no interaction is in progress, so that the widget can be reused for another node.
  virtual bool isAtRest() const;
  // Shows another node as a new widget would. The control must have no node.
  void takeOver(const viewkit::PresentationNode& node);

  // Null from when the node is removed until the widget is deleted or reused.
  const viewkit::PresentationNode* node() const { return node_; }
  // Called when the node is removed. Closes what the control opened.
  void forgetNode();

  // Called when an accessible interface was made for the widget. Reuse discards that interface,
  // because it described the former node.
  void noteAccessible() { isAccessible_ = true; }

  // The opacity of the node, multiplied with the opacities of its ancestors.
  double opacity() const { return opacity_; }
  void setOpacity(double opacity) { opacity_ = opacity; }

  // May be called only while there is a node.
  MirroredTree& tree() const { return tree_; }
  // Does for assistive technology what a click does. False when a click does nothing.
  virtual bool performPress() { return false; }

protected:
  // Called on reuse: resets what the widget shows of the former node.
  virtual void startAnew() {}

  template <class C>
  const C* control() const {
    return node_ && node_->control() ? std::get_if<C>(node_->control()) : nullptr;
  }

  // Calls a function of the control. The call may replace the control or remove the node.
  template <class C, class... Parameters, class... Arguments>
  void call(std::function<void(Parameters...)> C::*function, Arguments&&... arguments) {
    const C* current = control<C>();
    if (!current) return;
    if (const auto action = current->*function) action(std::forward<Arguments>(arguments)...);
  }

  // Refreshes on the next turn of the main queue: a view may refuse a value without changing its
  // node, and then nothing else restores what the widget shows.
  void refreshLater();
  // Calls `choose` on the next turn of the main queue. Of several calls within one turn only the
  // last is made: a chooser reports intermediate values before the one that the user picked.
  void settleOn(std::function<void()> choose);

private:
  void discardAccessible();

  MirroredTree& tree_;
  const viewkit::PresentationNode* node_;
  std::size_t kind_;
  appkit::Responder responder_;
  double opacity_ = 1;
  bool isAccessible_ = false;
  std::function<void()> settledOn_;
};

}  // namespace qt
