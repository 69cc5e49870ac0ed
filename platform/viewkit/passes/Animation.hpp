// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Node.hpp"
#include "viewkit/PresentationNode.hpp"

#include <chrono>
#include <memory>
#include <vector>

namespace viewkit {

class PresentPass;

// Whether withAnimation is calling its argument now.
bool isWithinAnimation();

// The animation pass: fades nodes in, and pictures of nodes that are gone out. A picture has no id,
// no control and no label.
class AnimationPass {
public:
  explicit AnimationPass(bool reducedMotion) : reducedMotion_(reducedMotion) {}

  void setReducedMotion(bool reducedMotion) { reducedMotion_ = reducedMotion; }

  // A view was marked. If that happened within an animation, the rebuild that follows is animated.
  void noteChange() { isAnimated_ = isAnimated_ || isWithinAnimation(); }
  void rebuildIsOver() { isAnimated_ = false; }
  // A node that the rebuild has made, or is about to remove from what `presenting` shows.
  void childInserted(Node& child);
  void childRemoved(Node& child, Node& presenting, const PresentPass& present);

  // At once, unless motion is reduced.
  void fadeIn(Node& node);
  void nodeGone(const Node& node);

  bool isRunning() const { return !in_.empty() || !out_.empty(); }
  void advance(std::chrono::duration<double> elapsed, PresentPass& present);
  // The pictures that fade out within the presentation of this node.
  void appendPicturesIn(const Node& presenting, std::vector<const PresentationNode*>& into) const;

private:
  struct FadeIn {
    Node* node = nullptr;
    // Seconds.
    double elapsed = 0;
  };
  struct FadeOut {
    Node* presenting = nullptr;
    // Of the nodes that were presented and, among them, of all that they showed.
    std::vector<std::unique_ptr<PresentationNode>> pictures;
    double elapsed = 0;
  };

  static PresentationNode& takePicture(FadeOut& out, const Presented& original,
                                       const PresentationNode* parent, const PresentPass& present);

  bool reducedMotion_;
  bool isAnimated_ = false;
  std::vector<FadeIn> in_;
  std::vector<FadeOut> out_;
};

}  // namespace viewkit
