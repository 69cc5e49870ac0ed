// SPDX-License-Identifier: MIT
#include "tree/CompositeNode.hpp"

#include "support/Diagnostics.hpp"
#include "tree/NodeServices.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace viewkit {

namespace {

CompositeNode* runningNode = nullptr;

// Sets the running node until the end of the block, also if the body throws.
class Running {
public:
  explicit Running(CompositeNode& node) : outer_(std::exchange(runningNode, &node)) {}
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() { runningNode = outer_; }

private:
  CompositeNode* outer_;
};

}  // namespace

std::unique_ptr<Node> CompositeViewValue::makeNode() const {
  return std::make_unique<CompositeNode>();
}

CompositeNode* CompositeNode::running() { return runningNode; }

const PlatformMetrics& CompositeNode::metrics() const { return services().metrics; }

void CompositeNode::apply(const ViewValue* before) {
  static_cast<void>(before);
  if (!shown_.isEmpty() && !stale_ && shownIn_ == inheritedPtr() &&
      valueAs<CompositeViewValue>().equals(
          static_cast<const CompositeViewValue&>(*shown_.value()))) {
    return;
  }
  runBody();
}

void CompositeNode::runBody() {
  if (!body_) body_ = std::make_shared<Body>(Body{.node = this});
  ++services().counters.bodiesRun;
  ++body_->run;
  stale_ = false;
  shown_ = view();
  shownIn_ = inheritedPtr();
  const View next = makeContent();
  services().bodyRuns(*this);
  reconcile(content_, next, inheritedPtr());
}

View CompositeNode::makeContent() {
  const Running running(*this);
  try {
    return valueAs<CompositeViewValue>().body();
  } catch (...) {
    if (!inherited().errorView) throw;
    return inherited().errorView(std::current_exception());
  }
}

void CompositeNode::bodyChanged() {
  if (runningNode) {
    reportMistake("the body of " + runningNode->view().value()->kind() +
                  " writes a value that the body of " + view().value()->kind() +
                  " reads: write it in a handler, bodies only say what is seen");
  }
  if (isActive()) {
    services().markBody(*this);
  } else {
    stale_ = true;
  }
}

void CompositeNode::activeChanged() {
  if (isActive() && stale_) services().markBody(*this);
}

bool CompositeNode::owns(const void* member) const {
  const auto extent = valueAs<CompositeViewValue>().extent();
  const auto* address = static_cast<const std::byte*>(member);
  const std::less<> before;
  return !before(address, extent.data()) && before(address, extent.data() + extent.size());
}

std::shared_ptr<Slot> CompositeNode::slotOf(const void* member,
                                            const std::function<std::shared_ptr<Slot>()>& make) {
  if (!owns(member)) return nullptr;
  const auto offset =
      static_cast<const std::byte*>(member) - valueAs<CompositeViewValue>().extent().data();
  const auto known = std::find_if(members_.begin(), members_.end(),
                                  [&](const Member& each) { return each.offset == offset; });
  if (known != members_.end()) return known->slot;
  std::shared_ptr<Slot> slot = make();
  members_.push_back({offset, slot});
  return slot;
}

std::shared_ptr<Slot> slotInRunningBody(const void* member,
                                        const std::function<std::shared_ptr<Slot>()>& make) {
  return runningNode ? runningNode->slotOf(member, make) : nullptr;
}

bool belongsToRunningBody(const void* member) { return runningNode && runningNode->owns(member); }

void reportUnlinkedProperty(const std::type_info& property) {
#ifndef NDEBUG
  std::fprintf(stderr,
               "viewkit: %s is used outside of the view that it belongs to: declare it as a member "
               "of the view, and take the view along into handlers with [self = *this]\n",
               unqualifiedTypeName(property).c_str());
  std::abort();
#else
  static_cast<void>(property);
#endif
}

}  // namespace viewkit
