#pragma once

#include "tree/Node.hpp"
#include "viewkit/PresentationNode.hpp"

#include <chrono>
#include <memory>
#include <vector>

namespace viewkit {

class Presenter;

// What is fading in or out. What fades in is the real thing; what fades out is only a picture of
// what was there, without an id, a control or a word for assistive technology.
class Fades {
public:
  void fadeIn(Node& node);
  // `presenting` goes on showing the picture of the node where it was.
  void fadeOut(Node& node, Node& presenting, const Presenter& presenter);
  bool isEmpty() const { return in_.empty() && out_.empty(); }
  void advance(std::chrono::duration<double> elapsed, Presenter& presenter);
  void nodeGone(const Node& node);

  void appendPicturesIn(const Node& presenting, std::vector<const PresentationNode*>& into) const;

private:
  struct In {
    Node* node = nullptr;
    double elapsed = 0;
  };
  struct Out {
    Node* presenting = nullptr;
    std::vector<std::unique_ptr<PresentationNode>> pictures;
    double elapsed = 0;
  };

  static PresentationNode& takePicture(Out& out, const Node::Presented& original,
                                       const PresentationNode* parent, const Presenter& presenter);

  std::vector<In> in_;
  std::vector<Out> out_;
};

}  // namespace viewkit
