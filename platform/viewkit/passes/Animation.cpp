// SPDX-License-Identifier: MIT
#include "passes/Animation.hpp"

#include "foundation/ScopedFlag.hpp"
#include "passes/Present.hpp"
#include "tree/FadesOut.hpp"
#include "viewkit/Animation.hpp"

#include <algorithm>
#include <utility>
#include <variant>

namespace viewkit {

namespace {

bool withinAnimation = false;

// The part of a fade that is done, slow at both ends.
double progress(double seconds) {
  const double t = std::clamp(seconds / kDefaultAnimationDuration.count(), 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

// The presentations that fade when the node is removed: all within an animation, else those alone
// that always fade.
void collectLeaving(Node& node, bool isAnimated, std::vector<Presented*>& into) {
  const bool fades = isAnimated || dynamic_cast<const FadesOut*>(&node);
  if (node.presented()) {
    if (fades) into.push_back(node.presented());
    return;
  }
  node.visitShownChildren([&](Node& child) { collectLeaving(child, fades, into); });
}

bool isOver(double seconds) { return seconds >= kDefaultAnimationDuration.count(); }

// A node without a presentation fades by the presentations within it.
void setFade(Node& node, double fade) {
  if (Presented* presented = node.presented()) {
    presented->setFade(fade);
  } else {
    node.visitShownChildren([&](Node& child) { setFade(child, fade); });
  }
}

}  // namespace

void withAnimation(const std::function<void()>& changes) {
  const foundation::ScopedFlag animation(withinAnimation, true);
  changes();
}

bool isWithinAnimation() { return withinAnimation; }

void AnimationPass::childInserted(Node& child) {
  if (isAnimated_) fadeIn(child);
}

void AnimationPass::childRemoved(Node& child, Node& presenting, const PresentPass& present) {
  if (reducedMotion_ || !child.isActive()) return;
  FadeOut out{.presenting = &presenting, .pictures = {}};
  std::vector<Presented*> leaving;
  collectLeaving(child, isAnimated_, leaving);
  for (const Presented* each : leaving) {
    if (each->screen.isShown) takePicture(out, *each, &presenting.presented()->node, present);
  }
  if (!out.pictures.empty()) out_.push_back(std::move(out));
}

PresentationNode& AnimationPass::takePicture(FadeOut& out, const Presented& original,
                                             const PresentationNode* parent,
                                             const PresentPass& present) {
  PresentationNode& picture =
      *out.pictures.emplace_back(std::make_unique<PresentationNode>(original.node));
  picture.id = 0;
  picture.parent = parent;
  picture.accessibility = {};
  picture.tooltip.clear();
  picture.children.clear();
  if (picture.control()) picture.content = std::monostate();
  // A child may have been destroyed since the last present pass, so the pointers in
  // `original.node.children` are not followed.
  for (const NodeId id : original.screen.children) {
    const Node* child = present.shownNode(id);
    if (child && child->presented()->node.parent == &original.node)
      picture.children.push_back(&takePicture(out, *child->presented(), &picture, present));
  }
  return picture;
}

void AnimationPass::fadeIn(Node& node) {
  if (reducedMotion_) return;
  setFade(node, 0);
  in_.push_back({.node = &node});
}

void AnimationPass::advance(std::chrono::duration<double> elapsed, PresentPass& present) {
  for (FadeIn& in : in_) {
    in.elapsed += elapsed.count();
    setFade(*in.node, progress(in.elapsed));
  }
  std::erase_if(in_, [](const FadeIn& in) { return isOver(in.elapsed); });
  for (FadeOut& out : out_) {
    out.elapsed += elapsed.count();
    for (const auto& picture : out.pictures) {
      if (picture->parent == &out.presenting->presented()->node)
        picture->opacity = 1 - progress(out.elapsed);
      present.addDamage(visibleFrame(*picture));
    }
    if (isOver(out.elapsed) && !std::exchange(out.presenting->marks.children, true))
      present.markChildren(*out.presenting);
  }
  std::erase_if(out_, [](const FadeOut& out) { return isOver(out.elapsed); });
}

void AnimationPass::nodeGone(const Node& node) {
  if (!isRunning()) return;
  std::erase_if(in_, [&](const FadeIn& in) { return in.node == &node; });
  std::erase_if(out_, [&](const FadeOut& out) { return out.presenting == &node; });
}

void AnimationPass::appendPicturesIn(const Node& presenting,
                                     std::vector<const PresentationNode*>& into) const {
  for (const FadeOut& out : out_) {
    if (out.presenting != &presenting) continue;
    for (const auto& picture : out.pictures) {
      if (picture->parent == &presenting.presented()->node) into.push_back(picture.get());
    }
  }
}

}  // namespace viewkit
