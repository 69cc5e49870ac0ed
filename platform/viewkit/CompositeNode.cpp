#include "CompositeNode.hpp"

#include "Runtime.hpp"
#include "foundation/UserDefaults.hpp"
#include "viewkit/Dependents.hpp"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace viewkit {

namespace {

CompositeNode* runningNode = nullptr;

}  // namespace

std::unique_ptr<Node> CompositeViewValue::makeNode() const { return std::make_unique<CompositeNode>(); }

CompositeNode* CompositeNode::running() { return runningNode; }

std::weak_ptr<BodyRun> CompositeNode::currentRun() {
  return runningNode ? std::weak_ptr(runningNode->run_) : std::weak_ptr<BodyRun>();
}

void CompositeNode::apply() {
  if (!shown_.isEmpty() && shownIn_ == inheritedPtr() &&
      valueAs<CompositeViewValue>().equals(static_cast<const CompositeViewValue&>(*shown_.value()))) {
    return;
  }
  runBody();
}

void CompositeNode::runBody() {
  ++runtime().counters().bodiesRun;
  run_ = std::make_shared<BodyRun>(BodyRun{this});
  shown_ = view();
  shownIn_ = inheritedPtr();
  CompositeNode* const outer = std::exchange(runningNode, this);
  const View body = valueAs<CompositeViewValue>().body();
  runningNode = outer;
  reconcile(content_, body, inheritedPtr());
}

void CompositeNode::bodyChanged() { runtime().bodyChanged(*this); }

std::shared_ptr<Slot> CompositeNode::slotOf(const void* member, const std::function<std::shared_ptr<Slot>()>& make) {
  const auto extent = valueAs<CompositeViewValue>().extent();
  const auto* address = static_cast<const std::byte*>(member);
  const std::less<const std::byte*> before;
  if (before(address, extent.data()) || !before(address, extent.data() + extent.size())) return nullptr;
  const auto offset = static_cast<std::size_t>(address - extent.data());
  const auto known =
      std::find_if(members_.begin(), members_.end(), [&](const Member& each) { return each.offset == offset; });
  if (known != members_.end()) return known->slot;
  return members_.emplace_back(offset, make()).slot;
}

std::shared_ptr<Slot> slotInRunningBody(const void* member, const std::function<std::shared_ptr<Slot>()>& make) {
  return runningNode ? runningNode->slotOf(member, make) : nullptr;
}

void reportUnlinkedProperty(const std::type_info& property) {
#ifndef NDEBUG
  std::fprintf(stderr,
               "viewkit: %s is used outside of the view that it belongs to: declare it as a member of the view, and "
               "take the view along into handlers with [self = *this]\n",
               unqualifiedTypeName(property).c_str());
  std::abort();
#else
  static_cast<void>(property);
#endif
}

void Dependents::recordRead() {
  auto run = CompositeNode::currentRun();
  if (run.expired()) return;
  const auto sameRun = [&](const std::weak_ptr<BodyRun>& other) {
    return !other.owner_before(run) && !run.owner_before(other);
  };
  if (std::any_of(readers_.begin(), readers_.end(), sameRun)) return;
  std::erase_if(readers_, [](const std::weak_ptr<BodyRun>& each) { return each.expired(); });
  readers_.push_back(std::move(run));
}

void Dependents::markAll() {
  for (const auto& reader : std::exchange(readers_, {})) {
    if (const auto run = reader.lock()) run->node->bodyChanged();
  }
}

Environment Environment::current() {
  if (const CompositeNode* node = CompositeNode::running()) return node->environment();
  return {.defaultStore = foundation::UserDefaults::standardUserDefaults()};
}

}  // namespace viewkit
