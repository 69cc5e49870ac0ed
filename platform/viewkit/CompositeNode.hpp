#pragma once

#include "Node.hpp"
#include "viewkit/ViewProperty.hpp"

#include <cstddef>
#include <memory>
#include <vector>

namespace viewkit {

class CompositeNode;

// One run of one body: what it read knows it by this, and forgets it when the body runs again.
struct BodyRun {
  CompositeNode* node;
};

// The node of a view with a body: it keeps the view's state and shows what the body last said.
class CompositeNode final : public Node {
public:
  void visitChildren(const Visitor& visit) override {
    if (content_) visit(*content_);
  }

  void runBody();
  void bodyChanged();

  // For the body that is running now, wherever that is in the tree.
  static CompositeNode* running();
  static std::weak_ptr<BodyRun> currentRun();
  std::shared_ptr<Slot> slotOf(const void* member, const std::function<std::shared_ptr<Slot>()>& make);
  const Environment& environment() const { return inherited().environment; }

protected:
  void apply() override;
  Measurement measure(const ProposedSize& proposal) override {
    return content_ ? content_->measured(proposal) : Measurement{};
  }
  void placeChildren() override {
    if (content_) placeChild(*content_, {}, size());
  }

private:
  struct Member {
    std::size_t offset;
    std::shared_ptr<Slot> slot;
  };

  // The description whose body was last run, and where.
  View shown_;
  InheritedPtr shownIn_;
  std::vector<Member> members_;
  std::shared_ptr<BodyRun> run_;
  std::unique_ptr<Node> content_;
};

}  // namespace viewkit
