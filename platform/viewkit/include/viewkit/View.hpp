// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Modifiers.hpp"
#include "viewkit/TypeName.hpp"
#include "viewkit/ViewValue.hpp"

#include <concepts>
#include <memory>
#include <typeinfo>
#include <utility>

namespace viewkit {

class View;

// A type with a body is a view.
//
//     struct Greeting {
//       std::string name;
//       View body() const { return Text("Hello, " + name).padding(8); }
//     };
//
// A body may read the view's own members, its state and the objects that it observes, and nothing
// else that changes. Handlers outlive the body, so they capture a copy of the view: `[self =
// *this]`.
template <class V>
concept Composite = requires(const V& view) {
  { view.body() } -> std::same_as<View>;
};

// A handle to any view, as cheap to copy as a shared pointer. An empty handle shows nothing and
// takes no space.
//
//     error.empty() ? View{} : Text(error).foreground(Color::systemRed())
class View : public Modifiers<View> {
public:
  View() = default;
  template <Composite V>
  View(V view);
  explicit View(std::shared_ptr<const ViewValue> value) : value_(std::move(value)) {}

  bool isEmpty() const { return value_ == nullptr; }
  const ViewValue* value() const { return value_.get(); }

  // The same handle, not merely an equal view.
  friend bool operator==(const View& a, const View& b) { return a.value_ == b.value_; }

private:
  std::shared_ptr<const ViewValue> value_;
};

// Holds a view of the type V, whose content is its `body`.
//
//     const View view = Greeting{.name = "Ada"};  // holds a CompositeValue<Greeting>
template <class V>
class CompositeValue final : public CompositeViewValue {
public:
  explicit CompositeValue(V view) : view_(std::move(view)) {}

  View body() const override { return view_.body(); }
  std::span<const std::byte> extent() const override { return std::as_bytes(std::span(&view_, 1)); }
  std::string kind() const override { return unqualifiedTypeName(typeid(V)); }
  bool equals(const CompositeViewValue& other) const override {
    if constexpr (std::equality_comparable<V>) {
      return static_cast<const CompositeValue&>(other).view_ == view_;
    } else {
      return false;
    }
  }

private:
  V view_;
};

template <Composite V>
View::View(V view) : value_(std::make_shared<const CompositeValue<V>>(std::move(view))) {}

}  // namespace viewkit

#include "viewkit/Modifiers.ipp"
