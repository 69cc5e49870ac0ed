// SPDX-License-Identifier: MIT
#include "input/ScrollTarget.hpp"
#include "tree/Node.hpp"
#include "tree/NodeServices.hpp"
#include "viewkit/ScrollView.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

using MakeContent = std::function<View(ScrollProxy)>;

// A view of its own, so that what `make` reads is recorded as read by a body.
struct ScrollViewReaderContent {
  MakeContent make;
  ScrollProxy proxy;

  View body() const { return make(proxy); }
};

class ReaderValue final : public ViewValue {
public:
  explicit ReaderValue(MakeContent make) : make(std::move(make)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "ScrollViewReader"; }

  const MakeContent make;
};

class ReaderNode final : public Node {
public:
  void visitChildren(const Visitor& visit) override { visit(*content_); }
  bool cachesMeasurements() const override { return false; }

protected:
  void apply(const ViewValue* before) override {
    if (!before) target_ = std::make_shared<ScrollProxy::Target>(services(), *this);
    reconcile(content_, ScrollViewReaderContent{valueAs<ReaderValue>().make, ScrollProxy(target_)},
              inheritedPtr());
  }
  Measurement measure(const ProposedSize& proposal) override {
    return content_->measured(proposal);
  }
  void placeChildren() override { placeChild(*content_, {}, size()); }

private:
  // The proxies hold it weakly, so they do nothing once the node is gone.
  std::shared_ptr<ScrollProxy::Target> target_;
  std::unique_ptr<Node> content_;
};

std::unique_ptr<Node> ReaderValue::makeNode() const { return std::make_unique<ReaderNode>(); }

}  // namespace

void ScrollProxy::scrollTo(ViewId id) const {
  if (const auto target = target_.lock())
    target->services.scrollAfterLayout(target_, std::move(id));
}

void ScrollProxy::focus(ViewId id) const {
  if (const auto target = target_.lock()) target->services.focusAfterUpdate(target_, std::move(id));
}

View ScrollViewReader(std::function<View(ScrollProxy)> content) {
  return View(std::make_shared<const ReaderValue>(std::move(content)));
}

}  // namespace viewkit
