// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Node.hpp"
#include "viewkit/PlatformMetrics.hpp"
#include "viewkit/ViewProperty.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace viewkit {

class CompositeNode;

// A body as the values know it that it has read.
struct Body {
  CompositeNode* node = nullptr;
  // Counts the runs of the body.
  std::uint64_t run = 0;
};

// The node of a view with a body: it keeps the view's state and the content that the body last
// returned.
class CompositeNode final : public Node {
public:
  void visitChildren(const Visitor& visit) override {
    if (content_) visit(*content_);
  }
  bool cachesMeasurements() const override { return false; }

  // Runs the body and brings the content up to date.
  void runBody();
  // A value that the body read has changed: marks the body to run again.
  void bodyChanged();

  // The node whose body is running now, in any host; null for none.
  static CompositeNode* running();
  const std::shared_ptr<Body>& body() const { return body_; }
  // The slot of the member at this address of the view whose body is running, made if there is
  // none. Null if the address is in no member of this view.
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

  // The view that the body returns, or that an error boundary shows in its place.
  View makeContent();

  // The description whose body ran last, and what the node inherited then.
  View shown_;
  InheritedPtr shownIn_;
  std::vector<Member> members_;
  // The node is the only owner: weak pointers to it expire together with the node.
  std::shared_ptr<Body> body_;
  // A value that the body read has changed while the node was inactive.
  bool stale_ = false;
  std::unique_ptr<Node> content_;
};

}  // namespace viewkit
