#include "passes/Fades.hpp"

#include "passes/Presenter.hpp"
#include "viewkit/Animation.hpp"

#include <algorithm>
#include <utility>
#include <variant>

namespace viewkit {

namespace {

// Slow at both ends.
double progress(double seconds) {
  const double t = std::clamp(seconds / kDefaultAnimationDuration.count(), 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

bool isOver(double elapsed) { return elapsed >= kDefaultAnimationDuration.count(); }

}  // namespace

void Fades::fadeIn(Node& node) {
  node.setFade(0);
  in_.push_back({.node = &node});
}

PresentationNode& Fades::takePicture(Out& out, const Node::Presented& original,
                                     const PresentationNode* parent, const Presenter& presenter) {
  PresentationNode& picture =
      *out.pictures.emplace_back(std::make_unique<PresentationNode>(original.node));
  picture.id = 0;
  picture.parent = parent;
  picture.accessibility = {};
  picture.tooltip.clear();
  picture.children.clear();
  if (picture.control()) picture.content = std::monostate();
  // Children may have gone since they were presented; then `original.node.children` dangles.
  for (const NodeId id : original.shownChildren) {
    const Node* child = presenter.shownNode(id);
    if (child && child->presented()->node.parent == &original.node)
      picture.children.push_back(&takePicture(out, *child->presented(), &picture, presenter));
  }
  return picture;
}

void Fades::fadeOut(Node& node, Node& presenting, const Presenter& presenter) {
  Out out{.presenting = &presenting, .pictures = {}};
  std::vector<Node::Presented*> leaving;
  if (node.presented()) {
    leaving.push_back(node.presented());
  } else {
    node.collectPresentations(leaving);
  }
  for (const Node::Presented* each : leaving) {
    if (each->isShown) takePicture(out, *each, &presenting.presented()->node, presenter);
  }
  if (!out.pictures.empty()) out_.push_back(std::move(out));
}

void Fades::advance(std::chrono::duration<double> elapsed, Presenter& presenter) {
  for (In& in : in_) {
    in.elapsed += elapsed.count();
    in.node->setFade(progress(in.elapsed));
  }
  std::erase_if(in_, [](const In& in) { return isOver(in.elapsed); });
  for (Out& out : out_) {
    out.elapsed += elapsed.count();
    for (const auto& picture : out.pictures) {
      if (picture->parent == &out.presenting->presented()->node)
        picture->opacity = 1 - progress(out.elapsed);
      presenter.addDamage(visibleFrame(*picture));
    }
    if (isOver(out.elapsed)) presenter.childrenChanged(*out.presenting);
  }
  std::erase_if(out_, [](const Out& out) { return isOver(out.elapsed); });
}

void Fades::nodeGone(const Node& node) {
  if (isEmpty()) return;
  std::erase_if(in_, [&](const In& in) { return in.node == &node; });
  std::erase_if(out_, [&](const Out& out) { return out.presenting == &node; });
}

void Fades::appendPicturesIn(const Node& presenting,
                             std::vector<const PresentationNode*>& into) const {
  for (const Out& out : out_) {
    if (out.presenting != &presenting) continue;
    for (const auto& picture : out.pictures) {
      if (picture->parent == &presenting.presented()->node) into.push_back(picture.get());
    }
  }
}

}  // namespace viewkit
