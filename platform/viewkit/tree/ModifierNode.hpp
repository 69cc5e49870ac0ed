// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Node.hpp"

#include <memory>
#include <utility>

namespace viewkit {

// The description of a modified view: its content with something added.
class ModifierValue : public ViewValue {
public:
  explicit ModifierValue(View content) : content(std::move(content)) {}

  const View content;
};

// The node of a modified view. It measures and places its content as if it were not there; each
// modifier overrides what it does otherwise.
class ModifierNode : public Node {
public:
  void visitChildren(const Visitor& visit) override {
    if (content_) visit(*content_);
  }
  // The measurements are those of the content; a modifier that changes them overrides this.
  bool cachesMeasurements() const override { return false; }

protected:
  void apply(const ViewValue* before) override {
    static_cast<void>(before);
    const View& next = valueAs<ModifierValue>().content;
    if (content_ || !next.isEmpty()) reconcile(content_, next, inheritedByContent());
  }

  Measurement measure(const ProposedSize& proposal) override {
    return content_ ? content_->measured(proposal) : Measurement{};
  }

  void placeChildren() override {
    if (content_) placeChild(*content_, {}, size());
  }

  // What the content inherits: the same as this node, unless the modifier changes it.
  virtual const InheritedPtr& inheritedByContent() { return inheritedPtr(); }

  Node* content() const { return content_.get(); }

private:
  std::unique_ptr<Node> content_;
};

// The content with the modifier `Value`, made from the arguments; empty if the content is empty.
template <class Value, class... Arguments>
View modifiedView(const View& content, Arguments&&... arguments) {
  return content.isEmpty()
             ? View{}
             : View(std::make_shared<const Value>(content, std::forward<Arguments>(arguments)...));
}

}  // namespace viewkit
