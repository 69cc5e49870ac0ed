#pragma once

#include "appkit/Responder.hpp"
#include "viewkit/PresentationNode.hpp"

#include <QWidget>

#include <functional>
#include <utility>
#include <variant>

namespace qt {

class Mirror;

// What a control of the presentation tree is on the screen: a widget that shows its node and hands
// the person's actions to the functions in it. Every control derives from this and from the kind of
// widget that it is; Qt owns it through the widget's parent.
class ControlWidget {
public:
  ControlWidget(Mirror& mirror, const viewkit::PresentationNode& node)
      : mirror_(mirror), node_(&node), kind_(node.control()->index()) {}
  ControlWidget(const ControlWidget&) = delete;
  ControlWidget& operator=(const ControlWidget&) = delete;
  virtual ~ControlWidget() = default;

  virtual QWidget& widget() = 0;
  const QWidget& widget() const { return const_cast<ControlWidget&>(*this).widget(); }
  // The node's content or attributes are new.
  virtual void refresh() { widget().update(); }
  // Whether what is below the node is shown inside of this widget.
  virtual bool holdsChildren() const { return false; }
  // Where the corner of the node lies in the widget.
  virtual QPoint contentOrigin() const { return {}; }
  // What is below the node was brought up to date.
  virtual void contentsChanged() {}
  // Whether it stands above the window instead of among its neighbours.
  virtual bool floats() const { return false; }
  // Where the widget belongs when its node has this place in the window, in window coordinates.
  virtual QRect placeFor(const QRect& frame) const { return frame; }
  // Ends the editing of a text.
  virtual void endEditing() {}
  // Closes the menu or dialog that it has opened.
  virtual void closeOpened() {}
  virtual appkit::Responder& responder() { return responder_; }

  // Whether this is the right kind of widget for the node.
  virtual bool shows(const viewkit::PresentationNode& node) const {
    return node.control() && node.control()->index() == kind_;
  }
  // Whether nothing that the person began with it is under way, so that it may show another node as
  // a new widget would.
  virtual bool isAtRest() const;
  // From having no node to showing this one, as if it had been made for it.
  void takeOver(const viewkit::PresentationNode& node);

  // Nothing from when the node is gone until the widget is.
  const viewkit::PresentationNode* node() const { return node_; }
  // What the widget has opened goes with the node.
  void forgetNode();

  // Whether assistive technology was given an interface of it.
  bool isTold() const { return isTold_; }
  void setTold(bool isTold) { isTold_ = isTold; }

  // Of everything that the node stands in.
  double opacity() const { return opacity_; }
  void setOpacity(double opacity) { opacity_ = opacity; }

  // Used while there is a node.
  Mirror& mirror() const { return mirror_; }
  // What a click does, for assistive technology. Whether there is such a thing.
  virtual bool performPress() { return false; }

protected:
  // It shows another node: nothing of the one before may be seen or done.
  virtual void startAnew() {}

  template <class C>
  const C* control() const {
    return node_ && node_->control() ? std::get_if<C>(node_->control()) : nullptr;
  }

  // Calls a function of the control as it is now; the call may replace it or end the node.
  template <class C, class... Parameters, class... Arguments>
  void call(std::function<void(Parameters...)> C::*function, Arguments&&... arguments) {
    const C* current = control<C>();
    if (!current) return;
    if (const auto action = current->*function) action(std::forward<Arguments>(arguments)...);
  }

  // Shows what the view made of the person's action, should it be something else or nothing.
  void refreshLater();
  // Makes the last of the calls that are asked for in this turn, on the next one: a chooser goes
  // through several values until it settles on what the person picked.
  void settleOn(std::function<void()> choose);

private:
  Mirror& mirror_;
  const viewkit::PresentationNode* node_;
  std::size_t kind_;
  appkit::Responder responder_;
  double opacity_ = 1;
  bool isTold_ = false;
  std::function<void()> settledOn_;
};

}  // namespace qt
