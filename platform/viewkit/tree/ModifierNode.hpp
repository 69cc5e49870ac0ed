#pragma once

#include "tree/Node.hpp"

#include <memory>
#include <utility>

namespace viewkit {

// The description of a view that is one other view with something added.
class ModifierValue : public ViewValue {
public:
  explicit ModifierValue(View content) : content(std::move(content)) {}

  const View content;
};

// The node of such a view. As it stands it lets its content be measured and placed as if there were
// nothing around it; each modifier says only what it does otherwise.
class ModifierNode : public Node {
public:
  void visitChildren(const Visitor& visit) override {
    if (content_) visit(*content_);
  }
  // Its answers are its content's, unless the modifier measures otherwise.
  bool answersForItself() const override { return false; }

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

  // What the content inherits: what this node did, unless the modifier changes it.
  virtual const InheritedPtr& inheritedByContent() { return inheritedPtr(); }

  Node* content() const { return content_.get(); }

private:
  std::unique_ptr<Node> content_;
};

// A view of a modifier, unless there is nothing to modify.
template <class Value, class... Arguments>
View modifiedView(const View& content, Arguments&&... arguments) {
  return content.isEmpty()
             ? View{}
             : View(std::make_shared<const Value>(content, std::forward<Arguments>(arguments)...));
}

}  // namespace viewkit
