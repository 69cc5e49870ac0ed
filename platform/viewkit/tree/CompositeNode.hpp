#pragma once

#include "tree/Node.hpp"
#include "viewkit/ViewProperty.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace viewkit {

class CompositeNode;

// The body of a node, as those know it that were read in one of its runs.
struct Body {
  CompositeNode* node = nullptr;
  std::uint64_t run = 0;
};

// The node of a view with a body: it keeps the view's state and shows what the body last said.
class CompositeNode final : public Node {
public:
  void visitChildren(const Visitor& visit) override {
    if (content_) visit(*content_);
  }
  bool answersForItself() const override { return false; }

  void runBody() override;
  void bodyChanged();

  // The node whose body is running now, wherever that is in the tree.
  static CompositeNode* running();
  const std::shared_ptr<Body>& body() const { return body_; }
  std::shared_ptr<Slot> slotOf(const void* member,
                               const std::function<std::shared_ptr<Slot>()>& make);
  bool owns(const void* member) const;
  const Environment& environment() const { return inherited().environment; }
  const PlatformMetrics& metrics() const;

protected:
  void apply(const ViewValue* before) override;
  void activeChanged() override;
  Measurement measure(const ProposedSize& proposal) override {
    return content_ ? content_->measured(proposal) : Measurement{};
  }
  void placeChildren() override {
    if (content_) placeChild(*content_, {}, size());
  }

private:
  struct Member {
    std::ptrdiff_t offset;
    std::shared_ptr<Slot> slot;
  };

  // What the body says, or what stands in for it when it throws.
  View makeContent();

  // The description whose body was last run, and where.
  View shown_;
  InheritedPtr shownIn_;
  std::vector<Member> members_;
  // Shared with nobody, so that those that know it weakly see it end with the node.
  std::shared_ptr<Body> body_;
  // A write has marked the body while the node was not on the screen.
  bool stale_ = false;
  std::unique_ptr<Node> content_;
};

}  // namespace viewkit
