// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace viewkit {

class Node;
class View;

// The immutable description behind a View, and the factory of its node. Authors of views do not
// need it; each kind of node derives its description from it.
//
//     class SpacerValue final : public ViewValue {
//     public:
//       std::unique_ptr<Node> makeNode() const override { return std::make_unique<SpacerNode>(); }
//       std::string kind() const override { return "Spacer"; }
//     };
class ViewValue {
public:
  ViewValue() = default;
  ViewValue(const ViewValue&) = delete;
  ViewValue& operator=(const ViewValue&) = delete;
  virtual ~ViewValue() = default;

  virtual std::unique_ptr<Node> makeNode() const = 0;
  // The name of the view's type for people: "Text", "SettingsIconRow".
  virtual std::string kind() const = 0;
};

// The description of a view that has a body. See CompositeValue.
class CompositeViewValue : public ViewValue {
public:
  std::unique_ptr<Node> makeNode() const final;
  virtual View body() const = 0;
  // The memory of the view, to find out which properties are its members.
  virtual std::span<const std::byte> extent() const = 0;
  // Whether the other, of the same type, is known to have the same body. False if it is unknown.
  virtual bool equals(const CompositeViewValue& other) const = 0;
};

}  // namespace viewkit
