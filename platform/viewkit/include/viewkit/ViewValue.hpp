#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace viewkit {

class Node;
class View;

// What a view handle points to: an immutable description, and how to make the node that works for
// it. Authors of views never see one; authors of new kinds of nodes derive from it.
class ViewValue {
public:
  ViewValue() = default;
  ViewValue(const ViewValue&) = delete;
  ViewValue& operator=(const ViewValue&) = delete;
  virtual ~ViewValue() = default;

  virtual std::unique_ptr<Node> makeNode() const = 0;
  // The view's type as a person would say it: "Text", "SettingsIconRow".
  virtual std::string kind() const = 0;
};

// The description of a view that has a body.
class CompositeViewValue : public ViewValue {
public:
  std::unique_ptr<Node> makeNode() const final;
  virtual View body() const = 0;
  // The memory of the view: what lies in it belongs to the view, its state above all.
  virtual std::span<const std::byte> extent() const = 0;
  // Whether the other, of the same type, is known to have the same body.
  virtual bool equals(const CompositeViewValue& other) const = 0;
};

}  // namespace viewkit
